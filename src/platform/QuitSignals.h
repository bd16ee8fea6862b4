#pragma once

/// Lets the system's request to end (SIGTERM, SIGINT, SIGHUP) end the main event loop like the close mark does,
/// so that everything is put away. Called once, after the application object was made. Nothing on Windows.
void quitOnTerminationSignals();
