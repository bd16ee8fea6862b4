#pragma once

#include <QString>

/// Whether the text may be fetched from: the only kind of address that is taken from outside.
inline bool isWebAddress(const QString& url)
{
    return url.startsWith(QLatin1String("http://"), Qt::CaseInsensitive) ||
           url.startsWith(QLatin1String("https://"), Qt::CaseInsensitive);
}
