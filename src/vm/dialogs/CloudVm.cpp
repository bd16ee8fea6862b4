#include "vm/dialogs/CloudVm.h"

#include "app/MainClass.h"
#include "app/SysInit.h"
#include "common/GlobalConfig.h"
#include "net/NetServer.h"
#include "services/KvsystemService.h"
#include "services/Reply.h"

#include <QDebug>

namespace {

/// A round mark's colour by the time of the answer.
QString colorOf(int milliseconds)
{
    if (milliseconds < 100)
        return QStringLiteral("#0FC05C");
    return milliseconds < 500 ? QStringLiteral("#DDD02D") : QStringLiteral("#EA332A");
}

void noteResult(cloud_sub_line& line, int milliseconds)
{
    line.isOk = milliseconds >= 1;
    line.content = line.isOk ? QStringLiteral("%1ms").arg(milliseconds) : QStringLiteral("离线");
    line.backColor = line.isOk ? colorOf(milliseconds) : QStringLiteral("#F3200A");
}

} // namespace

CloudVm::CloudVm(QObject* parent) : QObject(parent), m_platforms(new CloudPlatModel(this)) {}

void CloudVm::init()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    const auto reply = held(KvsystemService::getInstance()->getSysApiReqUrls(
        {{QStringLiteral("type"), 2},
         {QStringLiteral("tAuthCode"), GlobalConfig::getRegValue(QStringLiteral("authCode"))}}));
    const bool hasLines = reply->data() && !reply->data()->reqLines().isEmpty();
    if (!isOk(*reply) && !hasLines) {
        MyMessage::getInstance()->showError(reply->msg());
        return;
    }
    if (reply->data()) {
        config->setSysApiReq(new SysApiReqDto(reply->data()));
        MainClass::getInstance()->setSqlData(QStringLiteral("sys_api_req"), linesText(reply->data()));
    }
    if (!hasLines)
        return;
    m_checkPath = config->sysApiReq()->lineCheckHttpPath();
    const QString stored = GlobalConfig::getRegValue(QStringLiteral("cloudUrl"));
    config->setApiUrl(config->sysApiReq()->apiUrl());
    m_platforms->update(config->sysApiReq()->reqLines());
    if (!stored.isEmpty()) {
        for (CloudLineData* platform : m_platforms->getData()) {
            const QVector<cloud_sub_line> lines = platform->pLineMode->get_data();
            for (int i = 0; i < lines.size(); ++i) {
                if (lines.at(i).domain == stored) {
                    platform->pLineMode->onChecked(i);
                    break;
                }
            }
        }
    }
    checkLines();
}

void CloudVm::clearChecked()
{
    for (CloudLineData* platform : m_platforms->getData())
        platform->pLineMode->clearChecked();
}

void CloudVm::onChecked(int index, int index1)
{
    CloudLineData* platform = m_platforms->getData().value(index);
    if (!platform || platform->pLineMode->isChecked(index1) || !platform->pLineMode->isOk(index1))
        return;
    clearChecked();
    platform->pLineMode->onChecked(index1);
}

bool CloudVm::save()
{
    QString domain;
    for (CloudLineData* platform : m_platforms->getData()) {
        for (const cloud_sub_line& line : platform->pLineMode->get_data()) {
            if (line.isChecked)
                domain = line.domain;
        }
    }
    if (domain.isEmpty()) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择切换线路"));
        return false;
    }
    GlobalConfig::setRegValue(QStringLiteral("cloudUrl"), domain);
    GlobalConfig::getInstance()->setApiUrl(domain);
    MainClass::getInstance()->initMqtt(false);
    return true;
}

void CloudVm::checkLines()
{
    for (CloudLineData* platform : m_platforms->getData()) {
        QVector<cloud_sub_line> lines = platform->pLineMode->get_data();
        for (cloud_sub_line& line : lines) {
            const QString url = line.domain + m_checkPath;
            qDebug().noquote() << url;
            noteResult(line, NetWorkUtls::NetServer(false, nullptr).testApi(url));
        }
        // A line that was chosen while the others were measured stays chosen.
        const QVector<cloud_sub_line> shown = platform->pLineMode->get_data();
        for (int i = 0; i < lines.size() && i < shown.size(); ++i)
            lines[i].isChecked = shown.at(i).isChecked;
        platform->pLineMode->update(lines);
    }
}
