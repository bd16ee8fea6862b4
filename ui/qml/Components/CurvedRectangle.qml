import QtQuick 2.15
import QtQuick.Shapes 1.15

// A rectangle with a radius for each corner: top left, top right, bottom right, bottom left.
Shape {
    id: shape

    property var cornersRadius: [0, 0, 0, 0]
    property color color: Theme.surface
    property color borderColor: "transparent"
    property int borderWidth: 1

    layer.enabled: true
    layer.samples: 4
    antialiasing: true

    ShapePath {
        strokeColor: shape.borderColor
        strokeWidth: shape.borderWidth
        fillColor: shape.color
        startX: shape.cornersRadius[0]
        startY: 0

        PathLine { x: shape.width - shape.cornersRadius[1]; y: 0 }
        PathQuad { x: shape.width; y: shape.cornersRadius[1]; controlX: shape.width; controlY: 0 }
        PathLine { x: shape.width; y: shape.height - shape.cornersRadius[2] }
        PathQuad { x: shape.width - shape.cornersRadius[2]; y: shape.height; controlX: shape.width; controlY: shape.height }
        PathLine { x: shape.cornersRadius[3]; y: shape.height }
        PathQuad { x: 0; y: shape.height - shape.cornersRadius[3]; controlX: 0; controlY: shape.height }
        PathLine { x: 0; y: shape.cornersRadius[0] }
        PathQuad { x: shape.cornersRadius[0]; y: 0; controlX: 0; controlY: 0 }
    }
}
