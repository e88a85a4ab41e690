// A field of one line, in which input methods compose in place.
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
    TextInput {
        id: input
        focus: true
        anchors { fill: parent; leftMargin: 7; rightMargin: 7 }
        verticalAlignment: TextInput.AlignVCenter
        clip: true
        autoScroll: false
        selectByMouse: true
        activeFocusOnTab: true
        echoMode: field.secure ? TextInput.Password : TextInput.Normal
        onTextEdited: field.edited(text)
        onAccepted: field.returned()
        onActiveFocusChanged: {
            const place = cursorPosition
            if (!activeFocus) cursorPosition = 0  // scrolls to the beginning
            autoScroll = activeFocus
            cursorPosition = place
            if (activeFocus) field.focused()
        }
        Accessible.role: Accessible.EditableText
        Accessible.name: field.spokenName
    }
    Text {
        id: hint
        anchors { fill: parent; leftMargin: 7; rightMargin: 7 }
        verticalAlignment: Text.AlignVCenter
        font: input.font
        color: "#C7C7C7"
        elide: Text.ElideRight
        visible: input.text.length === 0 && input.preeditText.length === 0
    }
}
