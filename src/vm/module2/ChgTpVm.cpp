#include "vm/module2/ChgTpVm.h"

#include "services/Baa01Service.h"

namespace {

constexpr int changeTicket = 2;

} // namespace

ChgTpModel::ChgTpModel(QObject* parent)
    : RowModel({field("name", &tp_struct::name), field("isSelected", &tp_struct::isSelected),
                field("price", &tp_struct::price)},
               parent)
{
}

void ChgTpModel::update(const Array<TpInfoDto*>& tickets)
{
    QVector<tp_struct> rows;
    for (const TpInfoDto* ticket : tickets)
        rows.append({ticket->name(), ticket->id(), ticket->price(), ticket->isPackTicket() == 1, false});
    replace(rows);
}

void ChgTpModel::onSelect(int index)
{
    if (index < 0 || index >= rowCount())
        return;
    for (int row = 0; row < rowCount(); ++row)
        changeAt(row, [&](tp_struct& ticket) { ticket.isSelected = row == index; });
}

ChgTpVm::ChgTpVm(QObject* parent) : ActionVm(parent), m_tickets(new ChgTpModel(this))
{
    connect(this, &ActionVm::isEnabledChanged, this, [this] { setIsBtnEnabled(isEnabled()); });
}

void ChgTpVm::init(const QString& cardId, const QString& cardType, const QString& orderId, int operType)
{
    m_cardId = cardId;
    m_orderId = orderId;
    m_operType = operType;
    fetch(&Baa01Service::getPkgTktsList, {{"cardType", cardType}},
          [this](const GetPkgTktsList& reply) { m_tickets->update(reply.data()); });
}

bool ChgTpVm::save()
{
    return act([this] {
        const int selected = m_tickets->find([](const tp_struct& ticket) { return ticket.isSelected; });
        if (!require(selected >= 0, "请选择需要更换的套票"))
            return false;
        const tp_struct ticket = m_tickets->row(selected);
        QJsonObject data{
            {"cardId", m_cardId}, {"orderId", m_orderId}, {"type", m_operType}, {"checkMode", changeTicket}};
        if (ticket.isPackTicket)
            data.insert("pkgTktId", ticket.id);
        return changeSilently(&Baa01Service::editPkgCards, data);
    });
}
