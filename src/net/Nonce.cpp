#include "net/Nonce.h"

#include <QUuid>

namespace {

QString randomUuid() { return QUuid::createUuid().toString(QUuid::Id128); }

Nonce::Source nonceSource = &randomUuid;

} // namespace

QString Nonce::next() { return nonceSource(); }

void Nonce::setSource(Source source) { nonceSource = source ? source : &randomUuid; }
