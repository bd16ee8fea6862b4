import QtQuick 2.15
import "../Components"
import "TileLines.js" as TileLines

// One room. All sizes follow the tile's height; what is largest is read from farthest: number, state, time left.
Tappable {
    id: tile

    required property string roomId
    required property string roomNo
    required property string roomName
    required property string roomFloor
    required property string backColor
    required property string stateMark
    required property string spokenName
    required property string statusVal
    required property string lines
    required property string usedTime
    required property string leftTime
    required property string roomCleaner

    readonly property color fill: backColor
    readonly property color textColor: Theme.textOn(fill)
    readonly property bool isTextLight: Qt.colorEqual(textColor, Theme.textOnColor)
    // What is set off from the ground is so away from the text's colour, so that it is read no worse.
    readonly property color inset: isTextLight ? Theme.insetDark : Theme.insetLight
    readonly property bool isOverrun: leftTime.charAt(0) === "超"
    readonly property real unit: height / 10
    readonly property int markSize: Math.max(Theme.leastSize, unit * 1.25)

    readonly property int headHeight: Math.max(20, unit * 2.15)
    readonly property int timesHeight: usedTime === "" && leftTime === "" ? 0 : Math.max(20, unit * 2.05)
    readonly property int bodyHeight: card.height - headHeight - timesHeight
    readonly property int textWidth: card.width - 10
    readonly property int leastLine: Math.max(Theme.leastSize, unit * 0.97)
    readonly property int largestLine: Math.max(leastLine, unit * 1.35)
    readonly property int stateHeight: statusVal === "" ? 0 : leastLine * 1.3
    // The lines are as large as they may be; beside the state, which is larger still, they are small.
    readonly property var plan: TileLines.plan(lines, textWidth, bodyHeight - stateHeight,
                                               statusVal !== "" ? [leastLine] : [largestLine, Math.floor((largestLine + leastLine) / 2), leastLine])
    readonly property int linesTop: card.y + headHeight

    // A state in words, in the middle of the tile.
    component StateText: PlainText {
        width: parent.width
        visible: text !== ""
        horizontalAlignment: Text.AlignHCenter
        fontSizeMode: Text.HorizontalFit
        leastSize: Theme.leastSize
        color: tile.textColor
    }

    component LineText: PlainText {
        x: card.x + 5
        width: tile.textWidth
        visible: text !== ""
        font.pixelSize: tile.plan.size
        lineHeightMode: Text.FixedHeight
        lineHeight: tile.plan.height
        color: tile.textColor
    }

    // A time in the bottom row.
    component TimeText: PlainText {
        height: tile.timesHeight
        leftPadding: 1
        rightPadding: 1
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        fontSizeMode: Text.HorizontalFit
        leastSize: Theme.leastSize
        font.pixelSize: Math.max(Theme.leastSize, height * 0.8)
        color: tile.textColor
    }

    objectName: "room_" + roomNo
    label: spokenName
    color: "transparent"

    Rectangle {
        id: card
        anchors.fill: parent
        anchors.margins: 3
        radius: 6
        color: !tile.isPressed ? tile.fill : tile.isTextLight ? Qt.darker(tile.fill, 1.5) : Qt.lighter(tile.fill, 1.25)
        border.width: tile.isPressed ? 3 : 0
        border.color: tile.textColor
    }

    PlainText {
        id: number
        anchors.left: card.left
        anchors.leftMargin: 5
        anchors.verticalCenter: card.top
        anchors.verticalCenterOffset: tile.headHeight / 2
        width: Math.min(implicitWidth, card.width - mark.width - Theme.leastSize - 16)
        fontSizeMode: Text.HorizontalFit
        leastSize: Theme.leastSize
        text: tile.roomNo
        font.bold: true
        font.pixelSize: Math.max(16, tile.unit * 1.8)
        color: tile.textColor
    }

    Rectangle {
        id: mark
        anchors.left: number.right
        anchors.leftMargin: 3
        anchors.verticalCenter: number.verticalCenter
        width: tile.markSize + 3
        height: width
        radius: 4
        color: tile.inset

        PlainText {
            anchors.centerIn: parent
            text: tile.stateMark
            font.pixelSize: tile.markSize
            color: tile.textColor
        }
    }

    PlainText {
        anchors.left: mark.right
        anchors.leftMargin: 3
        anchors.right: card.right
        anchors.rightMargin: 5
        anchors.baseline: number.baseline
        horizontalAlignment: Text.AlignRight
        text: tile.roomName === "" ? tile.roomFloor : tile.roomName + " " + tile.roomFloor
        font.pixelSize: Math.max(Theme.leastSize, tile.unit)
        color: tile.textColor
    }

    LineText {
        y: tile.linesTop
        text: tile.plan.amount
        font.bold: true
    }

    Rectangle {
        id: note
        x: card.x + 5
        y: tile.linesTop + (tile.plan.amount === "" ? 0 : tile.plan.height)
        width: tile.textWidth
        height: tile.plan.height * tile.plan.remarkRows
        visible: tile.plan.remark !== ""
        radius: 3
        color: Theme.note

        LineText {
            x: 4
            y: -1
            width: parent.width - 8
            text: tile.plan.remark
            wrapMode: Text.Wrap
            maximumLineCount: tile.plan.remarkRows
            color: Theme.textOnColor
        }
    }

    LineText {
        id: group
        y: note.y + (tile.plan.remark === "" ? 0 : note.height)
        text: tile.plan.group
    }

    LineText {
        y: group.y + (tile.plan.group === "" ? 0 : tile.plan.height)
        text: tile.plan.below
        wrapMode: Text.Wrap
        maximumLineCount: tile.plan.belowRows
    }

    Column {
        id: state
        readonly property int taken: tile.plan.rows * tile.plan.height
        readonly property int room: tile.bodyHeight - taken

        x: card.x + 5
        width: tile.textWidth
        y: tile.linesTop + Math.max(taken + (room - height) / 2, (tile.bodyHeight - height) / 2)
        visible: tile.statusVal !== ""

        StateText {
            text: tile.statusVal
            font.pixelSize: Math.max(Theme.leastSize, Math.min(tile.unit * 1.9, state.room / (tile.roomCleaner === "" ? 1.3 : 2.6)))
            font.bold: true
        }

        // Where there is no room for it the line above says who cleans.
        StateText {
            text: state.room < Theme.leastSize * 2.6 ? "" : tile.roomCleaner
            font.pixelSize: Math.max(Theme.leastSize, Math.min(tile.unit * 1.3, state.room / 2.8))
        }
    }

    TimeText {
        anchors.left: card.left
        anchors.right: left.left
        anchors.bottom: card.bottom
        text: tile.usedTime
    }

    Rectangle {
        id: left
        anchors.right: card.right
        anchors.bottom: card.bottom
        // An overrun is longer, and told in full even on a narrow tile.
        width: tile.isOverrun ? Math.round(Math.max(card.width * 0.6, Theme.leastSize * (0.57 * tile.leftTime.length + 0.2))) : Math.round(card.width / 2)
        height: tile.timesHeight
        radius: 6
        visible: tile.leftTime !== ""
        color: tile.isOverrun ? Theme.overrun : tile.inset

        TimeText {
            width: parent.width
            text: tile.leftTime
            font.bold: true
            color: tile.isOverrun ? Theme.textOn(Theme.overrun) : tile.textColor
        }
    }
}
