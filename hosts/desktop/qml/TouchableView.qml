// A view that answers touches: it can be reached by the Tab key and by assistive technology.
import QtQuick
import Gexlo

ViewItem {
    id: view
    Accessible.role: spokenRole
    Accessible.name: spokenName
    Accessible.selected: isOn
    Accessible.checkable: spokenRole === Accessible.CheckBox
    Accessible.checked: isOn
    Accessible.focusable: true
    Accessible.onPressAction: view.pressed()
    Accessible.onToggleAction: view.pressed()
    Accessible.onIncreaseAction: view.value += 1
    Accessible.onDecreaseAction: view.value -= 1

    Rectangle {
        anchors.fill: parent
        visible: view.activeFocus
        color: "transparent"
        border { width: 2; color: "#5AA9F0" }
        radius: 3
    }
}
