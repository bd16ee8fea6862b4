import QtQml 2.15

// How the self-test opens the dialogs of the board: with a room of each kind, and in them each page of the menu. Nobody
// logged in has no rooms; the dialogs are opened all the same.
QtObject {
    property var test: null

    readonly property var rooms: ({
        openRoomDlg: [{label: "empty", status: 1}],
        roomDetailDlg: [{label: "massage", status: 2}, {label: "rest", status: 3}]
    })

    function openings(dialog) {
        return (rooms[dialog] || []).map(kind => {
            const room = roomIn(kind.status)
            return {
                label: kind.label,
                properties: {roomId: room === undefined ? "" : room.roomId},
                missing: test.isLoggedIn() && room === undefined ? "the board has no such room" : "",
                inside: menuPages
            }
        })
    }

    // The board's first one that is neither reserved nor a guest room.
    function roomIn(status) {
        return test.rows("roomGrid").find(room => room.status === status && room.openType !== 2 && !room.roomLock)
    }

    function menuPages(dialog) {
        const loader = dialog.pageLoader
        return Object.keys(dialog.pages).filter(code => !test.isLoggedIn() || test.isShown("menu_" + code)).map(code => ({
            name: code,
            open: () => dialog.choose(code),
            seen: () => String(loader.source).endsWith("/" + dialog.pages[code] + ".qml") ? loader.item : null
        }))
    }
}
