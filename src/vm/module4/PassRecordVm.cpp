#include "vm/module4/PassRecordVm.h"

#include "common/Clock.h"
#include "services/Bca01Service.h"
#include "vm/shared/SlipStamp.h"

CallPassModel::CallPassModel(QObject* parent)
    : RowModel({field("cardNo", &call_pass_struct::cardNo), field("cardType", &call_pass_struct::cardType),
                field("statusVal", &call_pass_struct::statusVal), field("callNum", &call_pass_struct::callNum),
                field("operCode", &call_pass_struct::operCode),
                field("createTime", &call_pass_struct::createTime),
                field("handCardId", &call_pass_struct::handCardId)},
               parent)
{
}

void CallPassModel::update(const Array<HelpCallBashDto*>& entries)
{
    QVector<call_pass_struct> rows;
    rows.reserve(entries.size());
    for (const HelpCallBashDto* entry : entries)
        rows.append({entry->hardCardNo(), entry->hardCardTypeName(), entry->statusVal(), entry->callNum(),
                     entry->operatorCode(), entry->createTime(), entry->hardCardId()});
    replace(rows);
}

PassRecordVm::PassRecordVm(QObject* parent) : ReadingVm(parent), m_passed(new CallPassModel(this))
{
    m_reader.listenToStaff();
}

bool PassRecordVm::getRecords()
{
    constexpr int yesterday = 2;
    QDateTime start = businessDayStart(Clock::now());
    if (dateType() == yesterday)
        start = start.addDays(-1);
    const auto text = [](const QDateTime& moment) {
        return moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    };
    const QJsonObject range{{"startTime", text(start)}, {"endTime", text(start.addDays(1).addSecs(-1))}};
    const QPointer<PassRecordVm> self(this);
    const int asked = dateType();
    const auto reply = held(Bca01Service::getInstance()->getHelpCallBashApiLogPageList(
        range,
        {{QStringLiteral("page"), QStringLiteral("1")}, {QStringLiteral("limit"), QStringLiteral("200")}}));
    if (!self)
        return false;
    setIsLoadFailed(!isOk(*reply));
    if (!isOkOrShown(*reply))
        return false;
    // The other day may have been asked for in the meantime.
    if (asked == dateType())
        m_passed->update(reply->data() ? reply->data()->list() : Array<HelpCallBashDto*>());
    return true;
}

void PassRecordVm::recall(const QString& handCardId)
{
    act([&] { return change(&Bca01Service::reCallHandCards, {{"hardCardId", handCardId}}); });
}
