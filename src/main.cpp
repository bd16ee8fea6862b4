#include "entry/ProcessEntry.h"

int main(int argc, char** argv) { return runTerminal(argc, argv); }
