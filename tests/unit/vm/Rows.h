#pragma once

#include <QRegularExpression>
#include <QtTest>

/// Makes the rows of a table that is a text: a row a line, its cells between bars with blanks; a line that
/// begins with blanks goes on with the row before.
inline void addRows(const char* table)
{
    QTest::addColumn<QStringList>("cells");
    const QString text = QString::fromUtf8(table).trimmed().replace(QRegularExpression("\n +"), " ");
    for (const QString& row : text.split('\n')) {
        QStringList cells = row.split(QRegularExpression(" \\|(?= |$)"));
        cells.replaceInStrings(QRegularExpression("^ +| +$"), {});
        QTest::newRow(qPrintable(row)) << cells;
    }
}
