// The bar above the phone's screen. What it opens is loaded when it is asked for.
import QtQuick

Rectangle {
    id: bar
    required property var files
    anchors { left: parent ? parent.left : undefined; right: parent ? parent.right : undefined }
    color: "#161616"
    Accessible.role: Accessible.MenuBar
    Accessible.name: files.text("FILE_MENU")

    function toggleMenu() { loaded(menu, "ApplicationMenu.qml").toggle() }
    function open() { loaded(dialogs, "FileDialogs.qml").open() }
    function save() { if (files.canSave()) loaded(dialogs, "FileDialogs.qml").save() }
    function loaded(loader, source) {
        if (!loader.item) loader.setSource(source, { bar: bar })
        return loader.item
    }

    Shortcut { sequence: "F10"; onActivated: bar.toggleMenu() }
    Shortcut { sequence: StandardKey.Open; onActivated: bar.open() }
    Shortcut { sequence: StandardKey.Save; onActivated: bar.save() }

    Rectangle {
        id: button
        readonly property bool isOpen: menu.item !== null && menu.item.visible
        width: title.width + 24
        height: parent.height
        color: isOpen || mouse.containsMouse ? "#3A3A3A" : "transparent"
        border { width: activeFocus ? 2 : 0; color: "#5AA9F0" }
        activeFocusOnTab: true
        Accessible.role: Accessible.ButtonMenu
        Accessible.name: title.text
        Accessible.focusable: true
        Accessible.onPressAction: bar.toggleMenu()
        Keys.onSpacePressed: bar.toggleMenu()
        Keys.onReturnPressed: bar.toggleMenu()
        Keys.onEnterPressed: bar.toggleMenu()
        Keys.onDownPressed: bar.toggleMenu()

        Text {
            id: title
            anchors.centerIn: parent
            text: bar.files.text("FILE_MENU")
            color: "#E6E6E6"
            font.pixelSize: 13
            Accessible.ignored: true
        }
        MouseArea {
            id: mouse
            anchors.fill: parent
            hoverEnabled: true
            onPressed: bar.toggleMenu()
        }
    }
    Loader { id: menu; y: bar.height }
    Loader { id: dialogs }
}
