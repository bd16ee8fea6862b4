#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A certificate that nobody signed, for another name than the loopback's, and its key; files of a folder of
/// its own.
class SelfSignedCertificate
{
public:
    SelfSignedCertificate()
    {
        QProcess openssl;
        openssl.start(QStringLiteral("openssl"),
                      {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", key(), "-out", certificate(),
                       "-days", "1", "-subj", "/CN=other.example"});
        m_isMade = openssl.waitForFinished() && openssl.exitCode() == 0;
    }

    bool isMade() const { return m_isMade; }
    QString certificate() const { return m_folder.filePath(QStringLiteral("cert.pem")); }
    QString key() const { return m_folder.filePath(QStringLiteral("key.pem")); }

private:
    QTemporaryDir m_folder;
    bool m_isMade = false;
};
