#pragma once

// Which way a frame's figure looks. The sheet's rows are Front, Left, the mirror of
// Left, and Back.
enum class Facing
{
    Front,
    Left,
    Back
};

// A move in pixels on the frame: x to the right, y downwards.
struct Shift
{
    int dx;
    int dy;
};

// The pose of one frame: how far head and torso sink, and where each foot and each
// hand lies from its place at rest. Foot and hand A are the figure's right ones, B its
// left ones; facing left, A is the far side.
struct FramePose
{
    int bob;
    Shift footA;
    Shift footB;
    Shift handA;
    Shift handB;
};

// Where the parts of a figure at rest lie in a frame of one kind, row numbers from
// the top. The two feet rows are baseline and baseline + 1 in every frame.
struct Build
{
    int width;
    int height;
    int headTop;   // first row of the skull
    int shoulders; // first row of the torso
    int hips;      // first row of the legs
    int baseline;  // first of the two rows of the feet
    int hands;     // last row of the hands
    int stride;    // how far a foot moves forwards or back in a step, seen from the side
};

// The pose table of each kind, shared by every element of that kind so that they
// stack into one figure.
class Pose
{
public:
    static const Build& build(int kind);
    static int columnCount(int kind);
    // Row 2 has no pose of its own: it is row 1 mirrored.
    static FramePose frame(int kind, int row, int column);
    static Facing facing(int row);
};
