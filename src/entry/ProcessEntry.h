#pragma once

/// Runs the terminal from the single-instance guard to the end of the main event loop; the result is the exit
/// code.
int runTerminal(int& argc, char** argv);
