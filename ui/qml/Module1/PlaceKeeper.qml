import QtQuick 2.15

// A row more or less is no reason for a list to jump to its top: keeps it where the user left it when its rows are
// replaced.
QtObject {
    id: keeper

    required property Flickable view
    property real heldY: 0

    readonly property Connections resets: Connections {
        target: keeper.view.model || null
        ignoreUnknownSignals: true
        function onModelAboutToBeReset() {
            keeper.heldY = keeper.view.contentY
        }
        // The view learns of the reset behind this.
        function onModelReset() {
            Qt.callLater(keeper.restore)
        }
    }

    function restore() {
        view.forceLayout()
        view.contentY = Math.max(0, Math.min(heldY, view.contentHeight - view.height))
    }

    function showTop() {
        heldY = 0
        view.positionViewAtBeginning()
    }
}
