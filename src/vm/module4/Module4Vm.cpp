#include "vm/module4/Module4Vm.h"

#include "services/Bca01Service.h"
#include "vm/shared/CallText.h"
#include "vm/shared/TapWatch.h"

namespace {

constexpr int strikeOff = 2; ///< "isCall" of a called card that is deleted instead of passed over
const QString callMark = QStringLiteral("calls");

QVector<EventMarks::Topic> queueTopics()
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    return {{config->MQTT_HARDCARDSCALLDATA(), {}}, {config->MQTT_HARDCARDSCALLSTATUS(), callMark}};
}

QSet<QString> listed(const QString& text)
{
    QSet<QString> entries;
    for (const QString& entry : text.split(QLatin1Char(','), Qt::SkipEmptyParts))
        entries.insert(entry.trimmed());
    return entries;
}

QJsonObject actedBy(const QString& user, const QString& pwd, const QString& rfid, QJsonObject data = {})
{
    if (!rfid.isEmpty()) {
        data.insert("staffUid", rfid);
        return data;
    }
    if (!user.isEmpty())
        data.insert("staffNo", user);
    if (!pwd.isEmpty())
        data.insert("staffPwd", pwd);
    return data;
}

QJsonObject ofCard(const QString& cardNo, const QString& rfid)
{
    return rfid.isEmpty() ? QJsonObject{{"hardCardNo", cardNo}} : QJsonObject{{"cardUid", rfid}};
}

bool entersConsumption()
{
    const FuncMenuModel* menu = GlobalConfig::getInstance()->funcMenu();
    return menu && menu->find([](const Func_Menu_struct& entry) {
        return entry.funcVal == QLatin1String("CONSUME_CTRL");
    }) >= 0;
}

} // namespace

Module4Vm::Module4Vm(QObject* parent)
    : ActionVm(parent), m_waiting(new QueneWaitModel(this)), m_called(new QueneWaitModel(this)),
      m_marks(this, queueTopics(), [this] { fetchMarked(); })
{
    if (const TerminalDto* terminal = GlobalConfig::getInstance()->terminalInfo()) {
        setIsMultiCall(terminal->isMultiCall());
        m_spokenKinds = listed(terminal->hardCardTypes());
        m_freeActions = listed(terminal->noVerifyStaffIdentity());
    }
    m_announcing.setSingleShot(true);
    connect(&m_announcing, &QTimer::timeout, this, &Module4Vm::announceNext);
    connect(MainClass::getInstance(), &MainClass::mqttSignal, this, &Module4Vm::mqttEvent);
    m_cards.listenToCards();
}

void Module4Vm::init()
{
    m_marks.take(callMark);
    getQuene();
}

void Module4Vm::fetchMarked()
{
    if (isEnabled() && m_marks.take(callMark))
        getQuene();
}

void Module4Vm::getQuene()
{
    const auto take = [this](const GetHardCardCallList& reply) {
        if (!reply.data())
            return;
        m_waiting->update(reply.data()->waitCallInfos());
        m_called->update(reply.data()->callInfos());
        setWaitCount(m_waiting->rowCount());
        setCallCount(m_called->rowCount());
    };
    fetch(&Bca01Service::getHardCardCallList, {}, take, Refusal::Shown);
}

void Module4Vm::cancelWait(const QString& id, const QString& user, const QString& pwd, const QString& rfid)
{
    act([&] { return change(&Bca01Service::cacelWaitCall, actedBy(user, pwd, rfid, {{"id", id}})); });
}

void Module4Vm::repeat(const QString& id, const QString& user, const QString& pwd, const QString& rfid)
{
    act([&] { return change(&Bca01Service::repeatCallInfo, actedBy(user, pwd, rfid, {{"id", id}})); });
}

void Module4Vm::cross(const QString& id, const QString& user, const QString& pwd, const QString& rfid)
{
    act([&] { return change(&Bca01Service::crossCallInfo, actedBy(user, pwd, rfid, {{"id", id}})); });
}

void Module4Vm::cancel(const QString& id, const QString& user, const QString& pwd, const QString& rfid)
{
    act([&] {
        return change(&Bca01Service::crossCallInfo,
                      actedBy(user, pwd, rfid, {{"id", id}, {"isCall", strikeOff}}));
    });
}

/// The list has no other id to put into hardCardId.
void Module4Vm::dirCall(const QString& id, const QString& user, const QString& pwd, const QString& rfid)
{
    act([&] {
        return change(&Bca01Service::callHanrdCards,
                      actedBy(user, pwd, rfid, {{"id", id}, {"hardCardId", id}}));
    });
}

void Module4Vm::callNext(int num, const QString& user, const QString& pwd, const QString& rfid)
{
    act([&] { return change(&Bca01Service::callNextHardCards, actedBy(user, pwd, rfid, {{"callNum", num}})); });
}

void Module4Vm::startServer(const QString& user, const QString& pwd, const QString& rfid)
{
    act([&] { return change(&Bca01Service::startServerCallInfo, actedBy(user, pwd, rfid)); });
}

void Module4Vm::startServerDir(const QString& cardNo, const QString& user, const QString& pwd,
                               const QString& rfid)
{
    act([&] {
        return change(&Bca01Service::startServerCallInfo, actedBy(user, pwd, rfid, {{"hardCardNo", cardNo}}));
    });
}

void Module4Vm::addQuene(const QString& cardNo, const QString& rfid, const QString& user, const QString& pwd,
                         const QString& staffUid)
{
    const QJsonObject card = ofCard(cardNo, rfid);
    change(&Bca01Service::addWaitCallInfos, rfid.isEmpty() ? actedBy(user, pwd, staffUid, card) : card);
}

void Module4Vm::readingExec(QString cardId)
{
    if (!cardId.isEmpty())
        addQuene({}, cardId, {}, {}, {});
}

void Module4Vm::complate(const QString& cardNo, const QString& rfid, const QString& user, const QString& pwd,
                         const QString& staffUid)
{
    const QPointer<Module4Vm> self(this);
    Reply<CompleteWaitCall> reply;
    act([&] {
        reply = call(&Bca01Service::completeWaitCall, actedBy(user, pwd, staffUid, ofCard(cardNo, rfid)));
        return isOkOrShown(*reply);
    });
    if (!self || !reply || !isOk(*reply) || !reply->data() || !reply->data()->hardCardInfo())
        return;
    if (require(entersConsumption(), "已完成服务，但未本机器未配置消费录入功能无法直接录入消费") &&
        reply->data()->staffUserInfo())
        Q_EMIT beginConsumeSignal(reply->data()->hardCardInfo()->cardNo(), user, pwd, staffUid,
                                  reply->data()->staffUserInfo()->id());
}

void Module4Vm::assess(const QString& cardNo, const QString& rfid, const QString& user, const QString& pwd,
                       const QString& staffUid)
{
    const QPointer<Module4Vm> self(this);
    const bool isFound = act([&] {
        const auto reply =
            call(&Bca01Service::getHardCardAssessOrders, actedBy(user, pwd, staffUid, ofCard(cardNo, rfid)));
        return isOkOrShown(*reply) && self && takeAssessment(reply->data());
    });
    if (isFound && self)
        Q_EMIT assessSignal(assessHandId(), assessStaffId(), assessInfoList(), assessOrderList());
}

bool Module4Vm::takeAssessment(const AssessListDto* found)
{
    if (!found || !found->hardCardInfo() || !found->staffUserInfo() ||
        !require(!found->assessOrders().isEmpty(), "当前手牌无未评价订单") ||
        !require(!found->assessInfos().isEmpty(), "未设置评价,请联系系统管理员"))
        return false;
    QList<assess_info_struct> grades;
    for (const AssessInfoDto* grade : found->assessInfos())
        grades.append({grade->id(), grade->name(), false});
    QList<assess_order_struct> orders;
    for (const AssessOrderDto* order : found->assessOrders())
        orders.append({order->hardOrderId(), order->name(), order->num(), grades});
    setAssessHandId(found->hardCardInfo()->hardCardId());
    setAssessStaffId(found->staffUserInfo()->id());
    setAssessInfoList(grades);
    setAssessOrderList(orders);
    return true;
}

void Module4Vm::mqttEvent(const QString& topic, const QString& msg)
{
    m_marks.hear(topic);
    if (msg.isEmpty() || topic != GlobalConfig::getInstance()->MQTT_HARDCARDSCALLDATA())
        return;
    m_keys.append(msg);
    if (!m_isAnnouncing)
        m_announcing.start(0);
}

/// One after the other, so that the numbers are spoken in their order, and between two the event loop of
/// whoever waits may end. A finger that is down is waited for: the call would take its press back.
void Module4Vm::announceNext()
{
    constexpr int retryMs = 50;
    constexpr int mostPutOffs = 40; // a finger that lies on the screen doesn't silence it
    if (TapWatch::isFingerDown() && ++m_putOffs < mostPutOffs) {
        m_announcing.start(retryMs);
        return;
    }
    m_putOffs = 0;
    const QPointer<Module4Vm> self(this);
    m_isAnnouncing = true;
    announce(m_keys.takeFirst());
    if (!self)
        return;
    m_isAnnouncing = false;
    if (!m_keys.isEmpty())
        m_announcing.start(0);
}

void Module4Vm::announce(const QString& key)
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    const QPointer<Module4Vm> self(this);
    const auto reply = call(&Bca01Service::getMqttCallInfoDataByKey, {{"key", key}});
    if (!self)
        return;
    // Without a line each of the others would only make the user wait as long again.
    if (!isAnswered(*reply))
        m_keys.clear();
    if (!isOkOrShown(*reply))
        return;
    for (const CallInfoDataDto* card : reply->data()) {
        if (!card->cardNo().isEmpty() && !card->hardCardType().isEmpty() &&
            m_spokenKinds.contains(card->hardCardType()))
            MainClass::getInstance()->ttsAddData(callText(config->zyTtsText(), card->cardNo()),
                                                 config->call_count);
    }
}
