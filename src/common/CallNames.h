#pragma once

#include <QString>

/// What a call does, in the words of its button; empty for one that nobody has to vouch for.
QString nameOfCall(const QString& path);
