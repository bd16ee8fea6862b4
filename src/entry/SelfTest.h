#pragma once

#include "entry/Looks.h"

#include <memory>

class QQmlApplicationEngine;

/// Opens every page and every dialog of the running terminal once, against whatever back end answers; nothing
/// is saved there. The application ends with 0 when nothing failed, else with 1. Main thread.
class SelfTest : public QObject
{
    Q_OBJECT

public:
    /// Begins when the event loop runs; a picture of each look is saved in the folder, unless its name is
    /// empty. The staff number may be empty. The engine must have its root page and live longer.
    SelfTest(QQmlApplicationEngine& engine, const QString& staffNo, const QString& password,
             const QString& pictureFolder, QObject* parent = nullptr);
    ~SelfTest() override;

private:
    void planDialogs();
    void planLogin();
    void planModules();
    void planRooms();
    Look roomDialog(const QString& dialog, int status, const QString& label);
    void planRoomPages(QObject* dialog, const QString& label);
    void openDialog(const QString& name, const QVariantMap& properties);

    std::unique_ptr<QObject> m_opener; ///< stands for the page that opens dialogs
    const QString m_staffNo;
    const QString m_password;
    bool m_isLoggedIn = false;
    Looks m_looks;
};
