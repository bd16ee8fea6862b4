#pragma once

#include <QLocalServer>

class QLocalSocket;

/// Tells tools outside where things are on the screen, so that they can be tapped like a person taps them. Only
/// opened on demand; whoever may open the socket sees no more than names and places.
///
/// A question is one line with an object name; the answer is one line: "x y width height" in pixels of the
/// screen, then what the item shows as text, if anything. It is "-" while there is no such item
/// or it is disabled, and "..." during a back-end call, when no item takes a tap.
class PlaceServer : public QObject
{
    Q_OBJECT

public:
    explicit PlaceServer(const QString& socket, QObject* parent = nullptr);

    bool isOpen() const { return m_server.isListening(); }
    QString error() const { return m_server.errorString(); }

private:
    void answer(QLocalSocket* asker);

    QLocalServer m_server;
};
