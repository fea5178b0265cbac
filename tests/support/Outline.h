#pragma once

#include <QAbstractItemModel>
#include <QStringList>

// What a list, table or tree shows: a row a line, its texts parted by bars, and what is below it indented.
inline QString outline(const QAbstractItemModel &model, const QModelIndex &parent = {}, const QString &indent = {})
{
    QString text;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(parent); ++column)
            cells.append(model.index(row, column, parent).data().toString());
        cells.removeAll({});
        text += indent + cells.join(u'|') + u'\n';
        text += outline(model, model.index(row, 0, parent), indent + QStringLiteral("  "));
    }
    return text;
}
