#pragma once

#include <QByteArray>
#include <QString>

// What of an exchange may stand in the log: not without end, and nothing that logs somebody in.

/// The text with the values of secretKey, token, secret and of every password masked, in JSON as in a query.
QString masked(const QString& text);

/// A reply, masked; of one over 64 kB its beginning and its length.
QString loggedReply(const QByteArray& body);
