// The menu of the bar, with the keys that do the same.
import QtQuick
import QtQuick.Controls.Basic

Menu {
    id: menu
    required property var bar
    // A press on the bar's button is not one outside that closes, for it closes by itself.
    closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutsideParent
    width: 280
    padding: 4
    margins: 0

    function toggle() { visible ? close() : popup(parent, 0, 0, openItem) }

    component Entry: MenuItem {
        id: entry
        property string keys
        width: menu.availableWidth
        implicitHeight: 34
        contentItem: Item {
            Text {
                anchors { left: parent.left; right: shortcut.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
                text: entry.text
                elide: Text.ElideRight
                color: entry.enabled ? "#F2F2F2" : "#8A8A8A"
                font.pixelSize: 13
            }
            Text {
                id: shortcut
                anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                text: entry.keys
                color: entry.highlighted ? "#F2F2F2" : "#9A9A9A"
                font.pixelSize: 12
            }
        }
        background: Rectangle {
            radius: 3
            color: entry.highlighted ? "#2F6FB0" : "transparent"
        }
    }

    Entry {
        id: openItem
        text: menu.bar.files.text("OPEN_FILE")
        keys: "Ctrl+O"
        onTriggered: menu.bar.open()
    }
    Entry {
        text: menu.bar.files.text("SAVE_FILE")
        keys: "Ctrl+S"
        enabled: menu.visible && menu.bar.files.canSave()
        onTriggered: menu.bar.save()
    }

    background: Rectangle {
        color: "#262626"
        border { width: 1; color: "#4A4A4A" }
        radius: 5
    }
}
