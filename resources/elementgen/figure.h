#pragma once

#include "mask.h"
#include "pose.h"

// The joints of the figure in one frame, and the shapes of its limbs built on them.
// Bodies and garments take their shapes from here, so that a garment fits every body:
// both bodies have the same joints and differ only in the flesh around them.
class Figure
{
public:
    enum Side
    {
        A,
        B
    };

    Figure(int kind, Facing facing, const FramePose& pose);

    int kind() const { return m_kind; }
    Facing facing() const { return m_facing; }
    bool isSide() const { return m_facing == Facing::Left; }
    const Build& build() const { return m_build; }
    QSize size() const { return QSize(m_build.width, m_build.height); }
    Mask blank() const { return Mask(size()); }

    int headTop() const { return m_build.headTop + m_pose.bob; }
    int shoulders() const { return m_build.shoulders + m_pose.bob; }
    int hips() const { return m_build.hips + m_pose.bob; }
    int armTop() const { return shoulders() + 1; }
    int handBottom(Side side) const;
    int footTop(Side side) const;
    // Seen from the front or the back, whether that side's limbs are on the viewer's
    // left; seen from the side, whether they are on the near side.
    bool onLeft(Side side) const;
    bool isNear(Side side) const { return side == B; }
    // The side whose foot lies higher than the other's, or -1 when both are down.
    int liftedSide() const;

    // A leg from row top to row bottom (inclusive); widen moves its outer edge out
    // (seen from the side, its back edge), a negative value moves it in.
    Mask leg(Side side, int top, int bottom, int widen = 0) const;
    // The leg from the hips to the ankle.
    Mask leg(Side side, int widen = 0) const { return leg(side, hips(), footTop(side) - 1, widen); }
    // The foot's two rows, and raise more rows above them.
    Mask foot(Side side, int raise = 0, int widen = 0) const;
    // The left column of the leg at row y.
    int legLeft(Side side, int y) const;
    // An arm from row top to row bottom; widen moves its outer edge out (seen from the
    // side, both edges).
    Mask arm(Side side, int top, int bottom, int widen = 0) const;
    Mask arm(Side side) const { return arm(side, armTop(), handBottom(side)); }
    int armLeft(Side side, int y) const;
    // The torso from the shoulders down over the tops of the legs.
    Mask torso(int widen = 0) const;
    // The lower body between the legs' tops, where the legs join.
    Mask pelvis(int rows, int widen = 0) const;

private:
    int m_kind;
    Facing m_facing;
    const Build& m_build;
    FramePose m_pose;

    const Shift& footShift(Side side) const { return side == A ? m_pose.footA : m_pose.footB; }
    const Shift& handShift(Side side) const { return side == A ? m_pose.handA : m_pose.handB; }
};

// A mask mirrored about the frame's middle, for the halves of symmetric shapes.
int mirrorX(int x);
