#pragma once

// How many of all were good.
struct Share
{
    int good = 0;
    int all = 0;

    void add(bool isGood)
    {
        ++all;
        good += isGood ? 1 : 0;
    }
    double percent() const { return all == 0 ? 100 : 100.0 * good / all; }
};
