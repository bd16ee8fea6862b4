import QtQuick 2.15

// Charging plans.
PickGrid {
    objectName: "planGrid"
    textRole: "planName"
    namePrefix: "plan_"
    emptyText: "没有计费方案"
}
