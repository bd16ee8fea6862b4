pragma Singleton
import QtQuick 2.15

// The one home of colours, sizes and type by role. Colours that mean a state come from the models.
QtObject {
    // Background of pages
    readonly property color backgroundFrom: "#85CCF3"
    readonly property color backgroundTo: "#D9EFFF"
    readonly property color surface: "#FFFFFF"
    readonly property color line: "#D5DEE8"

    // Type
    readonly property color text: "#1F2D3D"
    readonly property color textMuted: "#5B6B7C"
    readonly property color textOnColor: "#FFFFFF"
    readonly property int titleSize: 26
    readonly property int textSize: 20
    readonly property int captionSize: 16

    // Actions
    readonly property color accent: "#2F6FE4"
    readonly property color busy: "#21be2b"

    // Shapes; nothing that is tapped is smaller than touchSize
    readonly property int touchSize: 44
    readonly property int headerHeight: 42
    readonly property int spacing: 16
    readonly property int radius: 10
}
