pragma Singleton
import QtQuick 2.15

// The one home of colours, sizes and type by role. Colours that mean a state come from the models.
QtObject {
    // Background of pages
    readonly property color backgroundFrom: "#85CCF3"
    readonly property color backgroundTo: "#D9EFFF"

    // Surfaces: dialogs, keys, fields
    readonly property color surface: "#FFFFFF"
    readonly property color surfaceMuted: "#EEF3F8"
    readonly property color line: "#D0DAE5"
    readonly property color shade: "#80102030"

    // Type
    readonly property color text: "#1F2D3D"
    readonly property color textMuted: "#5B6B7C"
    readonly property color textFaint: "#9AA7B5"
    readonly property color textOnColor: "#FFFFFF"
    readonly property int titleSize: 26
    readonly property int textSize: 20
    readonly property int captionSize: 16
    readonly property int keySize: 30
    readonly property int keyPressedSize: 42

    // Actions
    readonly property color accent: "#2F6FE4"
    readonly property color accentPressed: "#2257B8"
    readonly property color danger: "#E4572E"
    readonly property color dangerPressed: "#BC4220"
    readonly property color keyPressed: "#DCE6F2"
    readonly property color disabled: "#B9C4D0"
    readonly property color busy: "#21be2b"
    readonly property string clearMark: "#EE6826"

    // Shapes; nothing that is tapped is smaller than touchSize
    readonly property int touchSize: 44
    readonly property int buttonHeight: 60
    readonly property int headerHeight: 42
    readonly property int spacing: 16
    readonly property int radius: 10
}
