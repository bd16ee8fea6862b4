#pragma once

/// Claims this machine for this process, by a shared-memory segment that lives as long as the process does.
/// False when another instance is alive. A segment that a killed process left behind doesn't count.
bool claimSingleInstance();
