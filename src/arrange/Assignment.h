#pragma once

#include <QtGlobal>

#include <vector>

// Gives each row a column of its own, or none, at the least sum of costs: the Hungarian method with potentials, in time
// rows² · (columns + rows). Deterministic.
class Assignment
{
public:
    static constexpr qint64 never = qint64(1) << 40; // more than any sum of costs

    // costs: row by row; noneCosts: of each row, what it costs to get none. The result holds a column for each row, or
    // -1, until the next call.
    const std::vector<int> &solve(const std::vector<qint64> &costs, const std::vector<qint64> &noneCosts, int columns);

private:
    qint64 cost(int row, int column) const
    {
        return column < columns_ ? (*costs_)[size_t(row) * size_t(columns_) + size_t(column)]
                                 : (*noneCosts_)[size_t(row)];
    }
    void addRow(int row);
    int nextColumn(int row);
    void walkBack(int column);

    const std::vector<qint64> *costs_ = nullptr;
    const std::vector<qint64> *noneCosts_ = nullptr;
    int columns_ = 0;
    // Rows and columns count from 1 here; 0 is none.
    std::vector<qint64> rowPotential_;
    std::vector<qint64> columnPotential_;
    std::vector<qint64> slack_;
    std::vector<int> rowOf_; // of the columns
    std::vector<int> cameFrom_;
    std::vector<char> isDone_;
    std::vector<int> result_;
};
