#pragma once

#include "support/Text.h"

#include <QtTest>

// The data of a test: Rows<QString, int> row("text", "number") makes its columns, and row("name", "abc", 3) a row of
// it. Each value is converted to the type of its column.
template<typename... Types>
class Rows
{
    template<typename Type>
    using Column = const char *;
    template<typename Type>
    using Value = const std::conditional_t<std::is_same_v<Type, QString>, Text, Type> &;

public:
    explicit Rows(Column<Types>... names) { (QTest::addColumn<Types>(names), ...); }

    void operator()(const char *name, Value<Types>... values) const
    {
        (QTest::newRow(name) << ... << static_cast<const Types &>(values));
    }
};
