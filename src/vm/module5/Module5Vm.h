#pragma once

#include "common/Property.h"
#include "common/Settings.h"
#include "vm/module5/StringModel.h"

#include <QHash>
#include <QTextToSpeech>
#include <QVariantMap>

/// The settings of this machine, as the page shows them. They are read when the page opens and written
/// together; the running program goes on with those of its start.
class Module5Vm : public QObject
{
    Q_OBJECT
    CONSTANT_PROPERTY(StringModel*, pPrintModel, m_printers) // an empty one first, for none
    PROPERTY(int, printIndex, setPrintIndex, -1)
    CONSTANT_PROPERTY(StringModel*, pPrintModeModel, m_printModes)
    PROPERTY(int, printModeIndex, setPrintModeIndex, 0)
    PROPERTY(QList<QString>, comList, setComList, {})
    CONSTANT_PROPERTY(StringModel*, pComModel, m_ports) // for both readers
    PROPERTY(int, comIndex, setComIndex, -1)            // the staff reader's port
    PROPERTY(QList<QString>, handList, setHandList, {})
    CONSTANT_PROPERTY(StringModel*, pHandModel, m_handReaders)
    PROPERTY(int, handIndex, setHandIndex, 0) // 0: hand cards are read on the staff reader, 1: on their own
    PROPERTY(int, handComIndex, setHandComIndex, -1)
    PROPERTY(QString, handCom, setHandCom, {}) // unread
    PROPERTY(bool, isRfid8, setIsRfid8, false)
    PROPERTY(bool, isVisRfid8, setIsVisRfid8, false) // the reader's model knows numbers of eight digits
    PROPERTY(bool, isUseTts, setIsUseTts, false)
    PROPERTY(QList<QString>, langList, setLangList, {})
    CONSTANT_PROPERTY(StringModel*, pLangModel, m_languages)
    Q_PROPERTY(int langIndex READ langIndex WRITE setLangIndex NOTIFY langIndexChanged)
    PROPERTY(QList<QString>, voiceList, setVoiceList, {})
    CONSTANT_PROPERTY(StringModel*, pVoiceModel, m_voices)
    PROPERTY(int, voiceIndex, setVoiceIndex, 0)
    PROPERTY(int, speed, setSpeed, 0)
    PROPERTY(QString, zytts, setZytts, QStringLiteral("请%1号贵宾前往助浴区"))
    PROPERTY(int, callCount, setCallCount, 1)
    PROPERTY(bool, isSinglePrint, setIsSinglePrint, false)
    PROPERTY(bool, isOpenRoomPrint, setIsOpenRoomPrint, false)
    PROPERTY(int, stopServerCount, setStopServerCount, 0)
    PROPERTY(int, leaveRoomCount, setLeaveRoomCount, 0)
    PROPERTY(QList<QString>, jsAssTypeList, setJsAssTypeList, {}) // unread
    PROPERTY(QString, jsAssType, setJsAssType, {})                // unread
    PROPERTY(int, jsAssIndex, setJsAssIndex, 0)                   // 0 requested, 1 in rotation, 2 chosen
    PROPERTY(int, consItemCount, setConsItemCount, 8)
    PROPERTY(int, jsItemCount, setJsItemCount, 8)
    PROPERTY(int, roomItemCount, setRoomItemCount, 8)
    PROPERTY(bool, isSmallImgMode, setIsSmallImgMode, true)
    PROPERTY(QVariantMap, marks, setMarks, {}) // by key: "changed" unsaved, "restart" saved for the next start
    PROPERTY(bool, isChanged, setIsChanged, false)       // something is unsaved
    PROPERTY(bool, needsRestart, setNeedsRestart, false) // something saved waits for the next start

public:
    explicit Module5Vm(QObject* parent = nullptr);

    int langIndex() const { return m_langIndex; }
    /// The voices become those of the language.
    void setLangIndex(int index);

    /// Takes what the user typed for a property that is a number; what isn't one, or none, changes nothing.
    Q_INVOKABLE void enterNumber(const QString& property, const QString& text);
    /// Writes all settings, or none. The page stays as it is.
    Q_INVOKABLE bool save();
    /// Whether there is such a port on this machine now.
    Q_INVOKABLE bool isPortThere(const QString& name) const;
    /// Starts the program anew.
    Q_INVOKABLE void restart();

    /// The engine, speaking as the page says; null on a machine without one.
    QTextToSpeech* voiceToTry();

Q_SIGNALS:
    void langIndexChanged();

private Q_SLOTS:
    void compare();

private:
    void loadPrinters();
    void loadPorts();
    void loadVoice();
    void loadCounts();
    void loadReaders();
    bool makeEngine();
    void listVoices();
    void watchChanges();
    Settings::Values values() const;
    bool isOverwritingAgreed() const;
    void noteSaved();

    StringModel* m_printers;
    StringModel* m_printModes;
    StringModel* m_ports;
    StringModel* m_handReaders;
    StringModel* m_languages;
    StringModel* m_voices;
    int m_langIndex = -1;
    QTextToSpeech* m_engine = nullptr;
    bool m_isVoiceLoaded = false;
    QHash<QString, QString> m_saved;  ///< what a save of an untouched page would write
    QHash<QString, QString> m_stored; ///< what the file has, by what the program makes of it
};
