#pragma once

/// Removes old files and sends every message of the program to the background writer from here on. Run once at
/// start-up, on any thread.
void prepareLog();

/// Ends the sending, and waits a moment until what was logged is in the file. Run after prepareLog has ended.
void finishLog();
