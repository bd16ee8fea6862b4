#pragma once

#include "common/RowModel.h"

#include <QStringList>

/// Texts to choose from.
class StringModel : public RowModel<QString>
{
    Q_OBJECT

public:
    explicit StringModel(QObject* parent = nullptr)
        : RowModel({{"name", [](const QString& text) { return text; }}}, parent)
    {
    }

    void update(const QStringList& texts) { replace(texts.toVector()); }
    bool has(int index) const { return index >= 0 && index < rowCount(); }
    /// Empty without such a row.
    QString at(int index) const { return row(index); }
    int indexOf(const QString& text) const { return rows().indexOf(text); }
};
