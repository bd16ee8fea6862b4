#pragma once

/// Ends the program; what main() does last then starts it anew with the same arguments. Main thread.
void askForRestart();

/// Starts the program anew when that was asked for; returns when it wasn't or can't be done. Called once
/// nothing of the program is left: off Windows the new one takes the place of this process, so that whoever
/// waits for its end, such as a session, goes on waiting.
void restartIfAsked();
