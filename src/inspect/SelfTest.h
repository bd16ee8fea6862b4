#pragma once

#include "inspect/LookRunner.h"

#include <QJSValue>
#include <QVariantList>

#include <memory>

class QQmlApplicationEngine;
struct Module;

/// Opens every page and every dialog of the running terminal once, against whatever back end answers; nothing
/// is saved there. The application ends with 0 when nothing failed, else with 1. Main thread.
///
/// Modules are found in their table, dialogs by SelfTest.qml, where it stands how a folder of pages tells what
/// its dialogs are opened with.
class SelfTest : public QObject
{
    Q_OBJECT

public:
    /// Begins when the event loop runs; a picture of each look is saved in the folder, unless its name is
    /// empty. The staff number may be empty. The engine must have its root page and live longer.
    SelfTest(QQmlApplicationEngine& engine, const QString& staffNo, const QString& password,
             const QString& pictureFolder, QObject* parent = nullptr);
    /// What can't be read or hit counts as a failure, too.
    void setIsStrict(bool isStrict) { m_runner.setIsStrict(isStrict); }
    ~SelfTest() override;

    // For the folders of pages.
    Q_INVOKABLE bool isLoggedIn() const { return m_isLoggedIn; }
    Q_INVOKABLE bool isShown(const QString& item) const;
    /// The rows of the item's model, by their roles.
    Q_INVOKABLE QVariantList rows(const QString& item) const;

private:
    void planLogin();
    void planModules();
    void openModule(const Module& module);
    std::vector<Look> dialogs(const QString& folder, bool isOfModule);
    Look dialogLook(const QString& name, const QJSValue& opening, bool isOfModule);
    void planInside(const QString& name, QObject* dialog, const QJSValue& inside);
    QJSValue called(QJSValue function, QObject* argument = nullptr);
    /// What an error tells when a module isn't for this user; empty when it is for everybody.
    QString barringOf(const QString& folder);
    QJSValue asked(const char* function, const QString& argument);

    QQmlApplicationEngine& m_engine;
    std::unique_ptr<QObject> m_opener; ///< stands for the page that opens dialogs
    const QString m_staffNo;
    const QString m_password;
    bool m_isLoggedIn = false;
    LookRunner m_runner;
};
