import QtQuick 2.15

// The charging plans of a rest room.
PickGrid {
    objectName: "planGrid"
    textRole: "planName"
    namePrefix: "plan_"
    emptyText: "没有计费方案"
}
