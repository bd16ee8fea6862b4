import QtQuick 2.15
import "../../Components"

// The hours that a view-model keeps, at least one.
Stepper {
    property QtObject vm: null

    label: "开房时长"
    unit: "小时"
    minimum: 1
    value: vm.hours
    onLowered: vm.hours = Math.max(minimum, vm.hours - 1)
    onRaised: vm.hours += 1
}
