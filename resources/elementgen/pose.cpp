#include "pose.h"

#include "document/character.h"

namespace {

const Build XPBuild = {32, 48, 6, 22, 34, 46, 33, 3};
const Build VXBuild = {32, 32, 2, 17, 24, 30, 24, 2};

// Rows: facing the viewer, left, back. XP columns: rest, step with foot A forward,
// rest, step with foot B forward. The trailing foot lifts, seen from the front; seen
// from the back it is the foot that goes forward, away from the viewer. Each arm
// swings against its leg. On a step head and torso sink by one pixel.
const FramePose XPTable[3][4] = {
    {{0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {0, 0}, {0, -2}, {0, -1}, {0, 1}},
     {0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {0, -2}, {0, 0}, {0, 1}, {0, -1}}},
    {{0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {-3, 0}, {3, 0}, {3, -1}, {-3, -1}},
     {0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {3, 0}, {-3, 0}, {-3, -1}, {3, -1}}},
    {{0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {0, -2}, {0, 0}, {0, 1}, {0, -1}},
     {0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {0, 0}, {0, -2}, {0, -1}, {0, 1}}},
};

// VX columns: step with foot A, rest, step with foot B, the poses of XP's columns 1,
// 0 and 3 on a shorter figure, so that the editor's conversions between the kinds
// still walk.
const FramePose VXTable[3][3] = {
    {{1, {0, 0}, {0, -1}, {0, -1}, {0, 1}},
     {0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {0, -1}, {0, 0}, {0, 1}, {0, -1}}},
    {{1, {-2, 0}, {2, 0}, {2, -1}, {-2, -1}},
     {0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {2, 0}, {-2, 0}, {-2, -1}, {2, -1}}},
    {{1, {0, -1}, {0, 0}, {0, 1}, {0, -1}},
     {0, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
     {1, {0, 0}, {0, -1}, {0, -1}, {0, 1}}},
};

int tableRow(int row)
{
    return row == 3 ? 2 : row == 0 ? 0 : 1;
}

} // namespace

const Build& Pose::build(int kind)
{
    return kind == Character::VX ? VXBuild : XPBuild;
}

int Pose::columnCount(int kind)
{
    return Character::columnCountOf(kind);
}

FramePose Pose::frame(int kind, int row, int column)
{
    if (kind == Character::VX)
        return VXTable[tableRow(row)][column];
    return XPTable[tableRow(row)][column];
}

Facing Pose::facing(int row)
{
    return row == 0 ? Facing::Front : row == 3 ? Facing::Back : Facing::Left;
}
