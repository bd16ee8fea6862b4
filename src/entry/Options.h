#pragma once

#include <QString>
#include <QStringList>

/// What the command line asks for.
struct Options
{
    bool isWindowed = false; ///< a plain window in place of the whole screen
    bool isSelfTest = false; ///< every page and dialog is opened once, then the program ends
    bool isStrict = false;   ///< the self-test looks for what can't be read or hit, too
    QString staffNo;         ///< who logs in for the self-test; empty for nobody
    QString pictureFolder;   ///< of the self-test; empty for none
    QString placesSocket;    ///< where the items' places are told; empty for nowhere
    QString answer;          ///< what is printed in place of running; empty when it runs
    int exitCode = 0;        ///< with an answer

    /// From the arguments behind the program's name. Those with one hyphen are Qt's own.
    static Options parse(const QStringList& arguments);
};
