#pragma once

#include <QtTest>

#include <tuple>
#include <vector>

/// What a test goes through in a loop.
template <typename... Columns>
using Table = std::vector<std::tuple<Columns...>>;

/// The rows of a data-driven test: Rows<...>::add() in its data function, Rows<...>::current() in the test
/// itself. A row is its name and a value for each column.
template <typename... Columns>
class Rows
{
public:
    using Row = std::tuple<QString, Columns...>;

    static void add(std::vector<Row> rows)
    {
        all() = std::move(rows);
        QTest::addColumn<int>("index");
        for (size_t i = 0; i < all().size(); ++i)
            QTest::newRow(qPrintable(std::get<0>(all()[i]))) << static_cast<int>(i);
    }
    static const Row& current()
    {
        QFETCH(int, index);
        return all()[static_cast<size_t>(index)];
    }

private:
    static std::vector<Row>& all()
    {
        static std::vector<Row> rows;
        return rows;
    }
};
