#pragma once

#include <QString>
#include <QStringList>

/// What a shop sends when it needs help, as one text file: versions, settings, the last self-test, the log of
/// the day. Identity secrets, session values and passwords are masked wherever they stand.
class Diagnosis
{
public:
    /// Takes what only the main thread may read.
    Diagnosis();

    /// Writes the file into the folder and returns its path, an empty one when that failed. Any thread.
    QString write(const QString& folder) const;

private:
    QString withoutSecrets(const QString& text) const;

    QStringList m_secrets; ///< the longest first
    QString m_facts;
    QString m_settings;
    QString m_logFolder;
    QString m_today; ///< as log files are named
    QString m_stamp;
};
