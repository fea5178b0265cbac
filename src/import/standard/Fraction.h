#pragma once

#include "core/Ticks.h"

#include <compare>
#include <numeric>

// An exact length of music in ticks: tuplets and broken rhythms of any ratio add up without drift. Numbers that grow
// past 31 bits are rounded to whole ticks, so that no operation overflows. Never negative.
class Fraction
{
public:
    constexpr Fraction(qint64 numerator = 0, qint64 denominator = 1) : numerator_(numerator), denominator_(denominator)
    {
        reduce();
    }

    constexpr qint64 numerator() const { return numerator_; }
    constexpr qint64 denominator() const { return denominator_; }
    constexpr bool isZero() const { return numerator_ == 0; }

    constexpr Fraction operator*(const Fraction &other) const
    {
        return {numerator_ * other.numerator_, denominator_ * other.denominator_};
    }
    constexpr Fraction operator+(const Fraction &other) const
    {
        return {numerator_ * other.denominator_ + other.numerator_ * denominator_, denominator_ * other.denominator_};
    }
    // Nothing where it would be negative.
    constexpr Fraction operator-(const Fraction &other) const
    {
        const auto difference = numerator_ * other.denominator_ - other.numerator_ * denominator_;
        return {difference > 0 ? difference : 0, denominator_ * other.denominator_};
    }
    constexpr bool operator==(const Fraction &other) const = default;
    constexpr std::strong_ordering operator<=>(const Fraction &other) const
    {
        return numerator_ * other.denominator_ <=> other.numerator_ * denominator_;
    }

    constexpr bool isWhole() const { return denominator_ == 1; }
    constexpr qint64 floor() const { return isWhole() ? numerator_ : numerator_ / denominator_; }
    constexpr Ticks rounded() const
    {
        return isWhole() ? numerator_ : (2 * numerator_ + denominator_) / (2 * denominator_);
    }

private:
    static constexpr qint64 limit = qint64(1) << 30;

    constexpr void reduce()
    {
        if (!isWhole()) { // nearly all are
            const auto divisor = std::gcd(numerator_, denominator_);
            numerator_ /= divisor;
            denominator_ /= divisor;
        }
        if (numerator_ >= limit || denominator_ >= limit) {
            numerator_ = std::min(limit - 1, (numerator_ + denominator_ / 2) / denominator_);
            denominator_ = 1;
        }
    }

    qint64 numerator_;
    qint64 denominator_;
};

// A place in the music, which may be far from the start: whole ticks and a rest below one tick.
class MusicTime
{
public:
    constexpr void advance(const Fraction &length)
    {
        if (rest_.isZero() && length.isWhole()) { // nearly always
            whole_ = std::min(maxTicks, whole_ + length.numerator());
            return;
        }
        rest_ = rest_ + length;
        whole_ = std::min(maxTicks, whole_ + rest_.floor());
        rest_ = rest_ - Fraction(rest_.floor());
    }
    constexpr Ticks rounded() const { return whole_ + rest_.rounded(); }
    constexpr bool operator==(const MusicTime &other) const = default;
    constexpr std::strong_ordering operator<=>(const MusicTime &other) const
    {
        return whole_ != other.whole_ ? whole_ <=> other.whole_ : rest_ <=> other.rest_;
    }

private:
    Ticks whole_ = 0;
    Fraction rest_;
};
