#include "vm/module2/SellSumVm.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "print/PosPrint.h"
#include "services/Bca01Service.h"
#include "vm/shared/SlipStamp.h"

namespace {

constexpr int salesReport = 2;

QString timeFormat() { return QStringLiteral("yyyy-MM-dd HH:mm:ss"); }

} // namespace

SellSumVm::SellSumVm(QObject* parent)
    : ActionVm(parent), m_areas(new SellSumModel(this)), m_departments(new AreaListModel(this))
{
    const QDateTime now = Clock::now();
    setEndTime(now.toString(timeFormat()));
    setStartTime(businessDayStart(now).toString(timeFormat()));
    m_departments->fill(QStringLiteral("全部"));
    connect(this, &ActionVm::isEnabledChanged, this, [this] { setIsBtnEnabled(isEnabled()); });
    m_staffReader.listenToStaff();
}

QJsonObject SellSumVm::request() const
{
    QJsonObject asked{{"starttime", startTime()},
                      {"endtime", endTime()},
                      {"isOneItem", isOneItem() ? 1 : 0},
                      {"selectLocal", isLocal()},
                      {"orderType", salesReport}};
    if (!staffNo().isEmpty())
        asked.insert("code", staffNo());
    if (!areaId().isEmpty())
        asked.insert("areaId", areaId());
    if (staffNo().isEmpty() && areaId().isEmpty())
        asked.insert("code", GlobalConfig::getInstance()->userInfo()->code());
    return asked;
}

void SellSumVm::query()
{
    act([this] {
        const auto moment = [](const QString& text) { return QDateTime::fromString(text, timeFormat()); };
        return require(moment(startTime()) <= moment(endTime()), "开始日期不能大于结束日期") &&
               fetch(&Bca01Service::getSumList, request(),
                     [this](const GetSumList& reply) { m_areas->update(reply.data()); });
    });
}

void SellSumVm::print()
{
    if (m_areas->rowCount() == 0)
        return;
    sell_sum_print_struct slip;
    slip.startTime = startTime();
    slip.endTime = endTime();
    slip.staffCode = GlobalConfig::getInstance()->userInfo()->code();
    for (const SellSumAreaVm* area : m_areas->rows())
        slip.areas.append(area->printed());
    PosPrint::getInstance()->print(PrintSalesReport, QVariant::fromValue(slip), {}, {});
}
