import QtQuick 2.15
import "../Components"

// One room. All sizes follow the tile's height; what is largest is read from farthest: number, state, time left.
Item {
    id: tile

    required property string roomId
    required property string roomNo
    required property string roomName
    required property string roomFloor
    required property string backColor
    required property string payAmount
    required property string statusVal
    required property string cardList
    required property string staffList
    required property string finishStaff
    required property string groupRoom
    required property string usedTime
    required property string leftTime
    required property string roomCleaner
    required property string remark
    required property string lastSvrTime
    required property bool roomLock
    required property int openType
    required property bool dirtyFlg
    required property int status
    required property int cleanFlg

    readonly property color fill: backColor
    // White reads badly on the light colours.
    readonly property color textColor: fill.r * 0.299 + fill.g * 0.587 + fill.b * 0.114 > 0.55 ? "#221022" : "#FFFFFF"
    readonly property bool isOverrun: tile.leftTime.charAt(0) === "超"
    readonly property real unit: height / 10

    // The lines share what is left between the number and the times; those that don't fit are left out whole.
    readonly property int lineCount: [payAmount, remark, groupRoom, cardList, staffList, finishStaff, lastSvrTime].filter(line => line !== "").length
    // With little room left the state is one line more, the first.
    readonly property bool isStateALine: lineCount >= 2 && statusVal !== ""
    readonly property int allLines: lineCount + (isStateALine ? 1 : 0)
    readonly property int bodyHeight: card.y + card.height - times.height - body.y
    readonly property int lineHeight: Math.max(14, Math.min(unit * 1.4, bodyHeight / Math.max(4, allLines)))
    readonly property int rowsEach: Math.max(1, Math.floor(bodyHeight / lineHeight / Math.max(1, statusVal !== "" && lineCount === 1 ? 2 : allLines)))

    signal chosen(string roomId, string roomNo, int status, int openType, bool dirtyFlg, bool roomLock, int cleanFlg)

    function tap() {
        chosen(roomId, roomNo, status, openType, dirtyFlg, roomLock, cleanFlg)
    }

    objectName: "room_" + roomNo
    Accessible.role: Accessible.Button
    Accessible.name: tile.roomNo
    Accessible.onPressAction: tap()

    Rectangle {
        id: card
        anchors.fill: parent
        anchors.margins: 3
        radius: 6
        color: area.pressed ? Qt.darker(tile.fill, 1.35) : tile.fill
    }

    Text {
        id: number
        anchors.left: card.left
        anchors.leftMargin: 8
        anchors.top: card.top
        anchors.topMargin: 2
        text: tile.roomNo
        textFormat: Text.PlainText
        font.family: Pinfang
        font.bold: true
        font.pixelSize: tile.unit * 1.9
        color: tile.textColor
    }

    Text {
        id: floor
        anchors.right: card.right
        anchors.rightMargin: 8
        anchors.baseline: number.baseline
        width: Math.min(implicitWidth, tile.width * 0.3)
        text: tile.roomFloor
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.family: Pinfang
        font.pixelSize: Math.max(12, tile.unit)
        color: tile.textColor
    }

    Text {
        anchors.left: number.right
        anchors.leftMargin: 6
        anchors.right: floor.left
        anchors.rightMargin: 6
        anchors.baseline: number.baseline
        text: tile.roomName
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.family: Pinfang
        font.pixelSize: Math.max(12, tile.unit)
        color: tile.textColor
    }

    Item {
        id: body
        anchors.left: card.left
        anchors.right: card.right
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        y: number.y + number.height * 0.88
        height: Math.floor(tile.bodyHeight / tile.lineHeight) * tile.lineHeight
        clip: lines.height > height

        Column {
            id: lines
            width: parent.width

            TileLine {
                text: tile.isStateALine ? tile.statusVal : ""
                tile: tile
                font.bold: true
            }

            TileLine {
                text: tile.payAmount
                tile: tile
                font.bold: true
            }

            Rectangle {
                width: parent.width
                height: note.height
                visible: tile.remark !== ""
                radius: 3
                color: "black"

                TileLine {
                    id: note
                    x: 4
                    width: parent.width - 8
                    text: tile.remark
                    tile: tile
                    color: "white"
                }
            }

            TileLine {
                text: tile.groupRoom
                tile: tile
            }

            TileLine {
                text: tile.cardList
                tile: tile
            }

            TileLine {
                text: tile.staffList
                tile: tile
            }

            TileLine {
                text: tile.finishStaff
                tile: tile
            }

            TileLine {
                text: tile.lastSvrTime
                tile: tile
            }
        }
    }

    Column {
        id: state
        readonly property int room: tile.bodyHeight - lines.height

        anchors.left: body.left
        anchors.right: body.right
        y: body.y + lines.height + (room - height) / 2
        visible: !tile.isStateALine

        StateText {
            text: tile.statusVal
            font.pixelSize: Math.min(tile.unit * 1.9, state.room / (tile.roomCleaner === "" ? 1.3 : 2.4))
            font.bold: true
            color: tile.textColor
        }

        StateText {
            text: tile.roomCleaner
            font.pixelSize: Math.min(tile.unit * 1.3, state.room / 2.8)
            color: tile.textColor
        }
    }

    Item {
        id: times
        anchors.left: card.left
        anchors.right: card.right
        anchors.bottom: card.bottom
        height: tile.usedTime === "" && tile.leftTime === "" ? 0 : tile.unit * 2.1

        TimeText {
            anchors.left: parent.left
            text: tile.usedTime
            color: tile.textColor
        }

        Rectangle {
            anchors.right: parent.right
            width: parent.width / 2
            height: parent.height
            radius: 6
            visible: tile.leftTime !== ""
            color: tile.isOverrun ? "#C8102E" : "#30000000"
        }

        TimeText {
            anchors.right: parent.right
            text: tile.leftTime
            font.bold: true
            color: tile.isOverrun ? "#FFFFFF" : tile.textColor
        }
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: tile.tap()
    }
}
