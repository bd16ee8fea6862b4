#pragma once

class QString;

enum class Claim {
    Ours,     ///< until this process ends, however it ends
    Taken,    ///< another terminal is alive
    Unguarded ///< nobody can tell: what holds the claim can't be opened
};

/// Claims this machine for this process: on Windows by a shared-memory segment, elsewhere by a lock on
/// KV_PANEL_V2.lock beside the per-user values, so that there is one terminal for each identity. `cause` tells
/// why it isn't ours.
Claim claimSingleInstance(QString& cause);
