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
    readonly property int headSize: 22
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
    readonly property color veil: "#261F2D3D" // over what is pressed
    readonly property color disabled: "#B9C4D0"
    readonly property color busy: "#21be2b"
    readonly property string clearMark: "#EE6826"

    // What is chosen among others
    readonly property color current: "#398FFF"
    readonly property color currentText: "#FFFFFF"
    readonly property color otherText: "#555555"
    readonly property color picked: "#27B2CA"
    readonly property color unpicked: "#D8D9D9"
    readonly property color joined: "#A154EE"
    readonly property color unjoined: "#EBEBEB"

    // Dark grounds: wheels, panels beside a board
    readonly property color wheelGround: "#2B3A4A"
    readonly property color wheelMark: "#0099FF"
    readonly property color toolGround: "#2B3F55"
    readonly property color toolPressed: "#293D52"
    readonly property color toolOn: "#0B9E9F"
    readonly property color toolOff: "#DCDDDD"
    readonly property color panel: "#17795E"
    readonly property color panelRow: "#1F8F70"
    readonly property color panelRowChecked: "#F2B705"
    readonly property color panelRowPressed: "#0B4A39"
    readonly property color alert: "#FFFF00"

    // Tiles of a board, on whatever colour their state gives them
    readonly property color group: "#EE26DD"
    readonly property color textOnLight: "#221022"
    readonly property color note: "#000000"
    readonly property color overrun: "#C8102E"
    readonly property color inset: "#30000000"

    // The message window
    readonly property var messages: ({
        info: {back: "#FDF6EC", border: "#FAECD8", text: "#E6A23C"},
        success: {back: "#F0F9EB", border: "#E1F3D8", text: "#43B00D"},
        error: {back: "#FEF0F0", border: "#FDE2E2", text: "#F13737"}
    })

    // Shapes; nothing that is tapped is smaller than touchSize
    readonly property int touchSize: 44
    readonly property int buttonHeight: 60
    readonly property int headerHeight: 42
    readonly property int spacing: 16
    readonly property int radius: 10
}
