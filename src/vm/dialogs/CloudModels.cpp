#include "vm/dialogs/CloudModels.h"

namespace {

const char offlineColor[] = "#F3200A";

} // namespace

CloudLineModel::CloudLineModel(QObject* parent)
    : CheckOneModel({field("name", &cloud_sub_line::name), field("content", &cloud_sub_line::content),
                     field("backColor", &cloud_sub_line::backColor),
                     field("isChecked", &cloud_sub_line::isChecked)},
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

bool CloudLineModel::onChecked(int index) { return checkOnly(index); }

bool CloudLineModel::isOk(int index) const { return rows().value(index).isOk; }

bool CloudLineModel::isChecked(int index) const { return rows().value(index).isChecked; }

void CloudLineModel::clearChecked()
{
    QVector<cloud_sub_line> lines = rows();
    for (cloud_sub_line& line : lines)
        line.isChecked = false;
    refresh(lines);
}

CloudLineData::CloudLineData(const ReqLineDto* platform, QObject* parent)
    : QObject(parent), name(platform->title()), icon(platform->icon()), pLineMode(new CloudLineModel(this))
{
    pLineMode->update(platform->subLines());
}

CloudPlatModel::CloudPlatModel(QObject* parent)
    : RowModel(
          {{"name", [](CloudLineData* platform) { return platform->name; }, {}},
           {"icon", [](CloudLineData* platform) { return platform->icon; }, {}},
           {"lineModel", [](CloudLineData* platform) { return QVariant::fromValue(platform->pLineMode); }, {}}},
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
