#include "vm/dialogs/CloudModels.h"

#include "common/WebAddress.h"

namespace {

const char offlineColor[] = "#F3200A";

} // namespace

CloudLineModel::CloudLineModel(QObject* parent)
    : RowModel({field("name", &cloud_sub_line::name), field("content", &cloud_sub_line::content),
                field("backColor", &cloud_sub_line::backColor), field("isChecked", &cloud_sub_line::isChecked)},
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

CloudLineData::CloudLineData(const ReqLineDto* platform)
    : name(platform->title()), icon(isWebAddress(platform->icon()) ? platform->icon() : QString()),
      pLineMode(new CloudLineModel(this))
{
    pLineMode->update(platform->subLines());
}

CloudPlatModel::CloudPlatModel(QObject* parent)
    : ObjectModel(
          {{"name", [](CloudLineData* platform) { return platform->name; }},
           {"icon", [](CloudLineData* platform) { return platform->icon; }},
           {"lineModel", [](CloudLineData* platform) { return QVariant::fromValue(platform->pLineMode); }}},
          parent)
{
}

void CloudPlatModel::update(const Array<ReqLineDto*>& platforms)
{
    QVector<CloudLineData*> fresh;
    for (const ReqLineDto* platform : platforms)
        fresh.append(new CloudLineData(platform));
    replaceAll(fresh);
}
