#pragma once

/** One control's left (or mid) and right (or side) value with an L/R link. While linked, the left
    setter drives both sides and the right setter only stores its value; switching the link off
    brings the stored right value back, switching it on gives the right side the left value.
    Thread: under the effect's core lock. */
template <typename T> class LinkedPair
{
public:
    /** Sets the left value, and the right one while linked. */
    void setLeft(T v) noexcept
    {
        leftValue = v;
        if (linked)
            rightValue = v;
    }

    /** Stores the right value; applies it only while unlinked. Answers whether it was applied. */
    bool setRight(T v) noexcept
    {
        storedRight = v;
        if (linked)
            return false;
        rightValue = v;
        return true;
    }

    void setLinked(bool on) noexcept
    {
        linked = on;
        rightValue = linked ? leftValue : storedRight;
    }

    T left() const noexcept { return leftValue; }
    /** The right value in effect: the left one while linked (as last set), else the stored one. */
    T right() const noexcept { return rightValue; }
    bool isLinked() const noexcept { return linked; }

private:
    T leftValue{}, rightValue{}, storedRight{};
    bool linked = true;
};
