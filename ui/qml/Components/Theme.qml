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
    readonly property color glass: "#66FFFFFF"

    // Type
    readonly property color text: "#1F2D3D"
    readonly property color textMuted: "#526173"
    readonly property color textFaint: "#5E6C80"
    readonly property color textOnColor: "#FFFFFF"
    readonly property int leastSize: 14 // below that nobody reads it from a stool
    readonly property int captionSize: px(16)
    readonly property int textSize: px(20)
    readonly property int headSize: px(22)
    readonly property int titleSize: px(26)
    readonly property int keySize: 30
    readonly property int keyPressedSize: 42

    // Actions
    readonly property color accent: "#2763D0"
    readonly property color accentPressed: "#1C4DA6"
    readonly property color danger: "#BE3D19"
    readonly property color dangerPressed: "#A23212"
    readonly property color refusal: "#B3261E"
    readonly property color keyPressed: "#DCE6F2"
    readonly property color veil: "#261F2D3D" // over what is pressed
    readonly property color disabled: "#66758A"
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
    readonly property color touched: "#FFEFB0" // has just changed

    // Dark grounds: wheels, panels beside a board
    readonly property color wheelGround: "#1E2A36"
    readonly property color wheelMark: "#0099FF"
    readonly property color toolGround: "#2B3F55"
    readonly property color toolPressed: "#293D52"
    readonly property color toolOn: "#0B9E9F"
    readonly property color toolOff: "#DCDDDD"
    readonly property color panel: "#0F5F49"
    readonly property color panelRow: "#17795E"
    readonly property color panelRowChecked: "#F2B705"
    readonly property color panelRowPressed: "#083B2D"
    readonly property color alert: "#FFFF00"

    // Tiles of a board, on whatever colour their state gives them
    readonly property color group: "#EE26DD"
    readonly property color textOnLight: "#221022"
    readonly property color note: "#000000"
    readonly property color overrun: "#C8102E"
    readonly property color insetDark: "#30000000" // under a light text
    readonly property color insetLight: "#48FFFFFF"

    // Answers that guests read from afar, under a white text
    readonly property var answers: ({taken: "#1B7A33", again: "#8A5A00", refused: "#B3261E"})

    // The message window
    readonly property var messages: ({
        info: {back: "#FDF6EC", border: "#FAECD8", text: "#E6A23C"},
        success: {back: "#F0F9EB", border: "#E1F3D8", text: "#43B00D"},
        error: {back: "#FEF0F0", border: "#FDE2E2", text: "#F13737"}
    })

    // Shapes; nothing that is tapped is smaller than touchSize, and what is tapped in haste is as large as a key
    readonly property int touchSize: 48
    readonly property int keyHeight: px(64)
    readonly property int buttonHeight: px(64)
    readonly property int headerHeight: px(52)
    readonly property int spacing: px(16)
    readonly property int gap: px(8)
    readonly property int radius: px(10)

    // The window's size, from the root window; sizes are given for 1366 x 768 and grow with it, up to a point.
    property real windowWidth: 1366
    property real windowHeight: 768
    readonly property real scale: Math.max(1, Math.min(1.4, windowWidth / 1366, windowHeight / 768))

    function px(size) {
        return Math.round(size * scale)
    }

    // Black or white, whichever is read better on the ground: by the contrast of their luminances.
    function textOn(ground) {
        return 1.05 / (luminance(ground) + 0.05) >= (luminance(ground) + 0.05) / 0.0582 ? textOnColor : textOnLight
    }

    // The wanted colour where it can be read on the ground, else black or white.
    function legible(wanted, ground) {
        const lights = [luminance(wanted) + 0.05, luminance(ground) + 0.05]
        return Math.max(...lights) / Math.min(...lights) >= 4.5 ? wanted : textOn(ground)
    }

    function luminance(color) {
        return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b)
    }

    function linear(channel) {
        return channel <= 0.03928 ? channel / 12.92 : Math.pow((channel + 0.055) / 1.055, 2.4)
    }
}
