#pragma once

#include "common/FuncMenuModel.h"
#include "common/Property.h"
#include "common/Singleton.h"
#include "dto/system/LineRecords.h"
#include "dto/system/LoginRecords.h"
#include "dto/system/TerminalRecords.h"

#include <QJsonArray>
#include <QSet>
#include <QVector>

class CurlLibrary;

/// A work area that both this terminal serves and the staff member may work in.
struct work_area_struct
{
    QString areaId;
    QString areaName;
};

/// The running terminal's shared state, bound by the pages. Main thread, but for getInstance() and curl().
///
/// Records are deep copies of its own; a null one means that nothing has arrived yet.
class GlobalConfig : public QObject, public Singleton<GlobalConfig>
{
    Q_OBJECT

    PROPERTY(int, iSysStatus, setISysStatus, 0)                  // root page: 0 starting, 2 running
    PROPERTY(UserDto*, userInfo, setUserInfo, new UserDto(this)) // operator, updated in place, never null
    OWNED_PROPERTY(TerminalDto, terminalInfo, setTerminalInfo)
    OWNED_PROPERTY(FuncMenuModel, funcMenu, setFuncMenu)
    PROPERTY(QString, storeName, setStoreName, {})
    PROPERTY(QString, secretKey, setSecretKey, {}) // the terminal's key
    PROPERTY(QString, kvupload, setKvupload, {})   // base URL of uploaded images
    OWNED_PROPERTY(PlanConfigDto, planConfig, setPlanConfig)
    OWNED_PROPERTY(SysConfigDto, sysConfig, setSysConfig)
    OWNED_PROPERTY(CardConfigDto, cardConfig, setCardConfig)
    PROPERTY(QString, mqttUser, setMqttUser, {})
    PROPERTY(QString, mqttPwd, setMqttPwd, {})
    PROPERTY(int, mqttPort, setMqttPort, 61613)
    PROPERTY(long, tokenTimeStamp, setTokenTimeStamp, 0)               // lifetime of the token, seconds
    PROPERTY(QString, currentMod, setCurrentMod, {})                   // module word of the open module
    PROPERTY(bool, isVisSysConfig, setIsVisSysConfig, false)           // the settings icon is shown
    PROPERTY(bool, isCurrentModeLocked, setIsCurrentModeLocked, false) // the open module is locked
    PROPERTY(QString, zyTtsText, setZyTtsText, {})                     // voice template
    PROPERTY(QList<QString>, apiUrls, setApiUrls, {})                  // endpoints of the line fetch, in order
    PROPERTY(QString, MQTT_ROOM_STATUS, setMQTT_ROOM_STATUS, QStringLiteral("ROOMSTATUS_")) // topic prefixes
    PROPERTY(QString, MQTT_STAFF_STATUS, setMQTT_STAFF_STATUS, QStringLiteral("STAFFSTATUS_"))
    PROPERTY(QString, MQTT_CALL_CHGDATA, setMQTT_CALL_CHGDATA, QStringLiteral("CALLCHGDATA_"))
    PROPERTY(QString, MQTT_HARDCARDSCALLDATA, setMQTT_HARDCARDSCALLDATA, QStringLiteral("HARDCARDSCALLDATA_"))
    PROPERTY(QString, MQTT_HARDCARDSCALLSTATUS, setMQTT_HARDCARDSCALLSTATUS,
             QStringLiteral("HARDCARDSCALLSTATUS_"))
    PROPERTY(QString, loginRfid, setLoginRfid, {}) // credentials of the last helper-call login
    PROPERTY(QString, loginUser, setLoginUser, {})
    PROPERTY(QString, loginPwd, setLoginPwd, {})
    OWNED_PROPERTY(SysApiReqDto, sysApiReq, setSysApiReq) // the current line list
    CONSTANT_PROPERTY(int, dlgDeplyTime, 15)              // ms that a dialog waits before its first work
    CONSTANT_PROPERTY(int, initDelyTime, 120)             // ms that a module page waits before its first work
    CONSTANT_PROPERTY(QStringList, vendorText, m_vendorText) // lines of the vendor block

    PLAIN_FIELD(QString, mqttUrl, setMqttUrl, {})
    PLAIN_FIELD(QString, storeId, setStoreId, {})
    PLAIN_FIELD(QString, compId, setCompId, {})
    PLAIN_FIELD(QString, deviceId, setDeviceId, {})
    PLAIN_FIELD(QString, tcode, setTcode, QStringLiteral("5")) // terminal type
    PLAIN_FIELD(QString, token, setToken, {})                  // session of the last login
    PLAIN_FIELD(QString, secret, setSecret, {})                // its signing value
    PLAIN_FIELD(QString, postNonce, setPostNonce, {})          // the next POST's nonce

public:
    // Settings of this machine, read at start-up, under their settings keys.
    int js_assign_type = 1;          ///< how a technician is assigned: 1 requested, 2 chosen, 5 in rotation
    int js_item_count = 0;           ///< columns of the service item grid, 0: the page decides
    int cons_item_count = 0;         ///< columns of the consumption item grid
    int room_item_count = 0;         ///< rooms per row of the board
    int stop_server_print_count = 0; ///< copies of the service-end receipt
    int leave_room_print_count = 0;  ///< copies of the leave-room receipt
    int hand_card_device = 0;        ///< 1 when a hand card reader is connected
    int call_count = 1;              ///< repetitions of a voice call

    /// The line in use: base URL with scheme, no trailing slash.
    QString apiUrl() const { return m_apiUrl; }
    /// What is no web address never becomes the line.
    void setApiUrl(const QString& url);

    /// A value of the user's own store, empty when it is missing.
    static QString getRegValue(const QString& key);
    static void setRegValue(const QString& key, const QString& value);

    /// Whether the staff member of the last complete login holds the right with this code.
    Q_INVOKABLE bool isHaveAuth(const QString& code) const { return m_rights.contains(code); }
    /// The codes of his rights, put in place of all before.
    void setRights(const QSet<QString>& codes) { m_rights = codes; }
    /// The ids of all rights that the pages ask for.
    QJsonArray getACodes() const;

    QVector<work_area_struct>* workAreaList() { return &m_workAreas; }

    /// Binds the HTTP library; false when it or one of its entry points is missing.
    bool initLibcurl();
    /// The bound library, valid after initLibcurl(). Any thread.
    const CurlLibrary& curl() const { return *m_curl; }

private:
    friend class Singleton<GlobalConfig>;
    GlobalConfig();

    QString m_apiUrl;
    QVector<work_area_struct> m_workAreas;
    QSet<QString> m_rights;
    QStringList m_vendorText;
    CurlLibrary* m_curl;
};
