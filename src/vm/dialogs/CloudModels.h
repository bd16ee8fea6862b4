#pragma once

#include "common/RowModel.h"
#include "dto/system/LineRecords.h"

/// A line on the screen.
struct cloud_sub_line
{
    QString name;
    QString domain;    ///< base URL
    QString content;   ///< result of the test
    QString backColor; ///< of the round mark beside it
    bool isOk = false; ///< the last test succeeded
    bool isChecked = false;
};

/// The lines of one platform. An index out of range gives false and changes nothing.
class CloudLineModel : public RowModel<cloud_sub_line>
{
    Q_OBJECT

public:
    explicit CloudLineModel(QObject* parent = nullptr);

    Q_INVOKABLE void update(const Array<SubLineDto*>& lines);
    Q_INVOKABLE void update(const QVector<cloud_sub_line>& lines) { refresh(lines); }
    Q_INVOKABLE bool isOk(int index) const { return row(index).isOk; }
    Q_INVOKABLE bool isChecked(int index) const { return row(index).isChecked; }
    Q_INVOKABLE void clearChecked() { uncheckAll(); }
    QVector<cloud_sub_line> get_data() const { return rows(); }
};

/// One platform.
class CloudLineData : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER name CONSTANT)
    Q_PROPERTY(QString icon MEMBER icon CONSTANT)
    Q_PROPERTY(CloudLineModel* pLineMode MEMBER pLineMode CONSTANT)

public:
    explicit CloudLineData(const ReqLineDto* platform);

    QString name;
    QString icon; ///< URL of its image
    CloudLineModel* pLineMode;
};

/// All platforms.
class CloudPlatModel : public ObjectModel<CloudLineData>
{
    Q_OBJECT

public:
    explicit CloudPlatModel(QObject* parent = nullptr);

    void update(const Array<ReqLineDto*>& platforms);
    QVector<CloudLineData*> getData() const { return rows(); }
};
