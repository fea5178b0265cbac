#include "arrange/Assignment.h"

#include <algorithm>

const std::vector<int> &Assignment::solve(const std::vector<qint64> &costs, const std::vector<qint64> &noneCosts,
                                          int columns)
{
    costs_ = &costs;
    noneCosts_ = &noneCosts;
    columns_ = columns;
    const auto rows = noneCosts.size();
    const auto width = size_t(columns) + rows + 1; // as many columns more that mean none
    rowPotential_.assign(rows + 1, 0);
    columnPotential_.assign(width, 0);
    rowOf_.assign(width, 0);
    cameFrom_.assign(width, 0);
    for (size_t row = 1; row <= rows; ++row)
        addRow(int(row));
    result_.assign(rows, -1);
    for (size_t column = 1; column <= size_t(columns); ++column) {
        if (rowOf_[column] > 0)
            result_[size_t(rowOf_[column]) - 1] = int(column) - 1;
    }
    return result_;
}

// Finds the shortest way from the row to a free column, over columns whose rows then take others.
void Assignment::addRow(int row)
{
    slack_.assign(rowOf_.size(), 4 * never);
    isDone_.assign(rowOf_.size(), 0);
    rowOf_[0] = row;
    int column = 0;
    do {
        column = nextColumn(column);
    } while (rowOf_[size_t(column)] != 0);
    walkBack(column);
}

int Assignment::nextColumn(int from)
{
    isDone_[size_t(from)] = 1;
    const int row = rowOf_[size_t(from)];
    int nearest = 0;
    for (size_t column = 1; column < slack_.size(); ++column) {
        if (isDone_[column])
            continue;
        const auto distance = cost(row - 1, int(column) - 1) - rowPotential_[size_t(row)] - columnPotential_[column];
        if (distance < slack_[column]) {
            slack_[column] = distance;
            cameFrom_[column] = from;
        }
        if (nearest == 0 || slack_[column] < slack_[size_t(nearest)])
            nearest = int(column);
    }
    const auto step = slack_[size_t(nearest)];
    for (size_t column = 0; column < slack_.size(); ++column) {
        if (isDone_[column]) {
            rowPotential_[size_t(rowOf_[column])] += step;
            columnPotential_[column] -= step;
        } else {
            slack_[column] -= step;
        }
    }
    return nearest;
}

void Assignment::walkBack(int column)
{
    while (column != 0) {
        const int before = cameFrom_[size_t(column)];
        rowOf_[size_t(column)] = rowOf_[size_t(before)];
        column = before;
    }
}
