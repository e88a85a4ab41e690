// A field of many lines, in which input methods compose in place.
import QtQuick

FocusScope {
    id: field
    property alias color: box.color
    property alias borderColor: box.border.color
    property alias borderWidth: box.border.width
    property alias text: input.text
    property alias font: input.font
    property alias textColor: input.color
    property alias placeholder: hint.text
    property bool secure: false
    property string spokenName
    signal edited(string text)
    signal returned
    signal focused
    clip: true

    Rectangle {
        id: box
        anchors.fill: parent
        border.width: 0
    }
    Flickable {
        id: page
        anchors { fill: parent; leftMargin: 5; rightMargin: 5; topMargin: 8; bottomMargin: box.border.width }
        contentHeight: input.height
        clip: true
        // The cursor is in sight; without the focus the beginning is.
        function show(line) {
            contentY = Math.max(Math.min(contentY, line.y), line.y + line.height - height)
        }
        TextEdit {
            id: input
            focus: true
            width: parent.width
            wrapMode: TextEdit.Wrap
            selectByMouse: true
            activeFocusOnTab: true
            onTextChanged: if (activeFocus) field.edited(text)
            onActiveFocusChanged: {
                if (activeFocus) field.focused()
                else page.contentY = 0
            }
            onCursorRectangleChanged: if (activeFocus) page.show(cursorRectangle)
            Accessible.role: Accessible.EditableText
            Accessible.name: field.spokenName
        }
    }
    Text {
        id: hint
        anchors { fill: parent; margins: 8 }
        font: input.font
        color: "#C7C7C7"
        visible: input.text.length === 0
    }
}
