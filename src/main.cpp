#include "entry/ProcessEntry.h"
#include "platform/Restart.h"

int main(int argc, char** argv)
{
    const int exitCode = runTerminal(argc, argv);
    restartIfAsked();
    return exitCode;
}
