#pragma once

#include "vm/dialogs/CloudModels.h"

/// Measures the lines to the back end and switches to the one that the user chooses.
class CloudVm : public QObject
{
    Q_OBJECT
    Q_PROPERTY(CloudPlatModel* pPlatModel READ pPlatModel CONSTANT)

public:
    explicit CloudVm(QObject* parent = nullptr);

    CloudPlatModel* pPlatModel() const { return m_platforms; }

    /// Fetches the list, marks the stored line and measures all. The default line is in use from then on.
    Q_INVOKABLE void init();
    Q_INVOKABLE void clearChecked();
    /// Chooses a line that has passed its test: index is the platform, index1 its line.
    Q_INVOKABLE void onChecked(int index, int index1);
    /// Stores the choice and goes over to it. False, with a message, when none is chosen.
    Q_INVOKABLE bool save();
    /// Measures every line, one after the other; a platform's rows change when all of its lines are done.
    Q_INVOKABLE void checkLines();

private:
    CloudPlatModel* m_platforms;
    QString m_checkPath; ///< appended to a line to measure it
};
