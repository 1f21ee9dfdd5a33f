#include "figure.h"

namespace {

// Integer interpolation from a to b over n steps, at step t, rounded half away from
// zero: plain integers, so that the pixels are the same on every machine.
int lerp(int a, int b, int t, int n)
{
    if (n <= 0)
        return b;
    const int numerator = (b - a) * t * 2;
    const int rounded = numerator >= 0 ? (numerator + n) / (2 * n) : -((-numerator + n) / (2 * n));
    return a + rounded;
}

// Seen from the front, the legs stand from x 10 to 14 and 17 to 21, the arms hang
// from 7 to 10 and 21 to 24: the figure is centred between columns 15 and 16.
constexpr int LegOuter = 10;
constexpr int LegInner = 14;
constexpr int ArmOuter = 7;
constexpr int ArmInner = 10;
// Seen from the side, where the legs and the arms hang at rest.
constexpr int NearLegLeft = 15;
constexpr int FarLegLeft = 12;
constexpr int SideArmLeft = 14;

} // namespace

int mirrorX(int x)
{
    return 31 - x;
}

Figure::Figure(int kind, Facing facing, const FramePose& pose)
    : m_kind(kind), m_facing(facing), m_build(Pose::build(kind)), m_pose(pose)
{}

int Figure::handBottom(Side side) const
{
    return m_build.hands + m_pose.bob + handShift(side).dy;
}

int Figure::footTop(Side side) const
{
    return m_build.baseline + footShift(side).dy;
}

bool Figure::onLeft(Side side) const
{
    // The figure's right side is on the viewer's left when it faces the viewer.
    if (m_facing == Facing::Front)
        return side == A;
    if (m_facing == Facing::Back)
        return side == B;
    return side == B;
}

int Figure::liftedSide() const
{
    if (footShift(A).dy < footShift(B).dy)
        return A;
    if (footShift(B).dy < footShift(A).dy)
        return B;
    return -1;
}

int Figure::legLeft(Side side, int y) const
{
    if (!isSide())
        return onLeft(side) ? LegOuter : mirrorX(LegInner);
    const int hip = isNear(side) ? NearLegLeft : FarLegLeft;
    const int ankleRow = footTop(side) - 1;
    return lerp(hip, hip + footShift(side).dx, y - hips(), ankleRow - hips());
}

Mask Figure::leg(Side side, int top, int bottom, int widen) const
{
    Mask mask = blank();
    for (int y = top; y <= bottom; ++y) {
        if (isSide()) {
            const int left = legLeft(side, y);
            mask.span(y, left, left + 4 + widen);
        } else if (onLeft(side)) {
            mask.span(y, LegOuter - widen, LegInner);
        } else {
            mask.span(y, mirrorX(LegInner), mirrorX(LegOuter) + widen);
        }
    }
    return mask;
}

Mask Figure::foot(Side side, int raise, int widen) const
{
    Mask mask = blank();
    const int top = footTop(side);
    for (int y = top - raise; y <= top + 1; ++y) {
        if (isSide()) {
            // The foot points forwards, to the left; the rows above it are the ankle.
            const int left = legLeft(side, top - 1);
            const int toe = y >= top ? left - 2 : left;
            mask.span(y, toe - widen, left + 4 + widen);
        } else if (onLeft(side)) {
            mask.span(y, LegOuter - 1 - widen, LegInner + (y >= top ? 0 : 0));
        } else {
            mask.span(y, mirrorX(LegInner), mirrorX(LegOuter) + 1 + widen);
        }
    }
    return mask;
}

int Figure::armLeft(Side side, int y) const
{
    if (!isSide())
        return onLeft(side) ? ArmOuter : mirrorX(ArmInner);
    return lerp(SideArmLeft, SideArmLeft + handShift(side).dx, y - armTop(),
                handBottom(side) - armTop());
}

Mask Figure::arm(Side side, int top, int bottom, int widen) const
{
    Mask mask = blank();
    for (int y = top; y <= bottom; ++y) {
        if (isSide()) {
            const int left = armLeft(side, y);
            mask.span(y, left - widen, left + 3 + widen);
        } else if (onLeft(side)) {
            mask.span(y, ArmOuter - widen, ArmInner);
        } else {
            mask.span(y, mirrorX(ArmInner), mirrorX(ArmOuter) + widen);
        }
    }
    return mask;
}

Mask Figure::torso(int widen) const
{
    Mask mask = blank();
    const int left = isSide() ? 11 : 10;
    const int right = mirrorX(left);
    mask.span(shoulders(), left + 1 - widen, right - 1 + widen);
    for (int y = shoulders() + 1; y <= hips() + 1; ++y)
        mask.span(y, left - widen, right + widen);
    return mask;
}

Mask Figure::pelvis(int rows, int widen) const
{
    Mask mask = blank();
    const int left = isSide() ? 11 : 10;
    for (int y = hips(); y < hips() + rows; ++y)
        mask.span(y, left - widen, mirrorX(left) + widen);
    return mask;
}
