#include "vm/dialogs/CloudModels.h"

namespace {

const char offlineColor[] = "#F3200A";

} // namespace

CloudLineModel::CloudLineModel(QObject* parent)
    : RowModel({{Qt::UserRole + 1, "name", [](const cloud_sub_line& line) { return line.name; }},
                {Qt::UserRole + 2, "content", [](const cloud_sub_line& line) { return line.content; }},
                {Qt::UserRole + 3, "backColor", [](const cloud_sub_line& line) { return line.backColor; }},
                {Qt::UserRole + 4, "isChecked", [](const cloud_sub_line& line) { return line.isChecked; }}},
               parent)
{
}

void CloudLineModel::update(const Array<SubLineDto*>& lines)
{
    QVector<cloud_sub_line> fresh;
    for (const SubLineDto* line : lines) {
        fresh.append({line->title(), line->domain(), QStringLiteral("离线"), QString::fromLatin1(offlineColor),
                      false, false});
    }
    replace(fresh);
}

bool CloudLineModel::onChecked(int index)
{
    QVector<cloud_sub_line> lines = rows();
    if (index < 0 || index >= lines.size())
        return false;
    for (int i = 0; i < lines.size(); ++i)
        lines[i].isChecked = i == index;
    replace(lines);
    return true;
}

bool CloudLineModel::isOk(int index) const { return rows().value(index).isOk; }

bool CloudLineModel::isChecked(int index) const { return rows().value(index).isChecked; }

void CloudLineModel::clearChecked()
{
    QVector<cloud_sub_line> lines = rows();
    for (cloud_sub_line& line : lines)
        line.isChecked = false;
    replace(lines);
}

CloudLineData::CloudLineData(const ReqLineDto* platform, QObject* parent)
    : QObject(parent), name(platform->title()), icon(platform->icon()), pLineMode(new CloudLineModel(this))
{
    pLineMode->update(platform->subLines());
}

CloudPlatModel::CloudPlatModel(QObject* parent)
    : RowModel({{Qt::UserRole + 1, "name", [](CloudLineData* platform) { return platform->name; }},
                {Qt::UserRole + 2, "icon", [](CloudLineData* platform) { return platform->icon; }},
                {Qt::UserRole + 3, "lineModel",
                 [](CloudLineData* platform) { return QVariant::fromValue(platform->pLineMode); }}},
               parent)
{
}

void CloudPlatModel::update(const Array<ReqLineDto*>& platforms)
{
    const QVector<CloudLineData*> old = rows();
    QVector<CloudLineData*> fresh;
    for (const ReqLineDto* platform : platforms)
        fresh.append(new CloudLineData(platform, this));
    replace(fresh);
    for (CloudLineData* platform : old)
        platform->deleteLater();
}
