import QtQuick 2.15

// Charging plans.
PickGrid {
    objectName: "planGrid"
    textRole: "planName"
    noteRole: "planTerms"
    namePrefix: "plan_"
    cellHeight: Theme.px(80)
    emptyText: "没有计费方案"
}
