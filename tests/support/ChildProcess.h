#pragma once

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>

/// A process that doesn't outlive the test program, however that one ends.
class ChildProcess : public QProcess
{
protected:
    void setupChildProcess() override { ::prctl(PR_SET_PDEATHSIG, SIGKILL); }
};
