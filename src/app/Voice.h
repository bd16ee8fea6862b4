#pragma once

#include "common/Property.h"

#include <QList>
#include <QLocale>
#include <QMutex>
#include <QObject>
#include <QTimer>

class QTextToSpeech;

/// A text that waits to be spoken.
struct tts_data
{
    int count = 1; ///< how many times it is still to be said
    QString text;
};

/// Speaks texts one after the other, the first come first. An engine that is given a text while it speaks cuts
/// what it says, so that it gets one only while it is ready, at the latest a second after it has become so.
class Voice : public QObject
{
    Q_OBJECT
    PROPERTY(int, waiting, setWaiting, 0) // texts that aren't wholly handed to the engine yet
    PROPERTY(QString, fault, setFault, QStringLiteral("语音播报未开启")) // why nothing is heard; empty: it is

public:
    explicit Voice(QObject* parent = nullptr);

    /// Makes the engine with the voice of the settings. Run once; without it, or on a machine without an
    /// engine, texts wait in silence.
    void init();
    /// A count of 0 or less says nothing.
    void add(const QString& text, int count);
    /// Forgets what waits and breaks off what is being said.
    void silence();

    /// How a locale stands in the settings.
    static QString label(const QLocale& locale);

private:
    void makeEngine();
    void applySettings();
    void updateFault();
    void updateWaiting();
    void feed();
    bool takeNext(QString& text);

    QTextToSpeech* m_engine = nullptr;
    QTimer* m_timer;
    QTimer* m_patience; ///< runs while the engine is busy; one that comes to no end is replaced
    int m_handed = 0;   ///< texts that the engine was given since it was last seen ready
    QMutex m_mutex;     ///< guards the queue; never held across a call of the engine
    QList<tts_data> m_queue;
};
