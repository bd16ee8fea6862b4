#pragma once

#include <QtTest>

#include <vector>

/// A data-driven test whose rows are structs: Rows<Row>::add() in its data function, Rows<Row>::current() in
/// the test itself. A row's first member is its name.
template <typename Row>
class Rows
{
public:
    static void add(std::vector<Row> rows)
    {
        all() = std::move(rows);
        QTest::addColumn<int>("index");
        for (size_t i = 0; i < all().size(); ++i)
            QTest::newRow(qPrintable(QString(all()[i].name))) << static_cast<int>(i);
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
