import QtQuick 2.15

// An item for sale. In a low tile the picture stands beside the text.
Tappable {
    id: tile

    property string name: ""
    property string unit: ""
    property double price: 0
    property string picture: ""
    property bool isLow: false
    property alias pictureName: image.objectName

    readonly property int pad: 4
    readonly property int textLeft: isLow ? image.width + 2 * pad : pad

    label: name
    border.color: Theme.line

    Image {
        id: image

        property bool isMissing: false

        x: tile.pad
        y: tile.pad
        width: tile.isLow ? tile.height - 2 * tile.pad : tile.width - 2 * tile.pad
        height: tile.isLow ? width : tile.height * 0.33
        source: isMissing ? "qrc:/images/empty.png" : tile.picture
        sourceSize: tile.isLow ? Qt.size(100, 100) : Qt.size(600, 400)
        asynchronous: true
        cache: false
        fillMode: Image.PreserveAspectFit
        onStatusChanged: {
            if (status === Image.Error)
                isMissing = true
        }
    }

    Connections {
        target: tile
        function onPictureChanged() {
            image.isMissing = false
        }
    }

    PlainText {
        x: tile.textLeft
        y: tile.isLow ? 2 : image.y + image.height
        width: tile.width - x - tile.pad
        height: tile.isLow ? tile.height * 0.5 : cost.y - y
        verticalAlignment: Text.AlignVCenter
        horizontalAlignment: tile.isLow ? Text.AlignLeft : Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: tile.isLow ? 1 : 2
        text: tile.name
        leastSize: Theme.leastSize
        lineHeight: 0.9
        font.pixelSize: Theme.px(16)
    }

    PlainText {
        id: cost
        x: tile.textLeft
        width: Math.min(implicitWidth, tile.width - x - tile.pad)
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
        text: "¥" + tile.price.toFixed(2)
        font.pixelSize: Theme.px(17)
        color: Theme.danger
    }

    PlainText {
        anchors.right: parent.right
        anchors.rightMargin: tile.pad
        anchors.left: cost.right
        anchors.leftMargin: 2
        anchors.baseline: cost.baseline
        horizontalAlignment: Text.AlignRight
        text: tile.unit
        font.pixelSize: Math.max(Theme.leastSize, Theme.px(14))
        color: Theme.textMuted
    }
}
