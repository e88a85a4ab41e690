// The dialogs in which a person chooses a timetable's file.
import QtQuick
import QtQuick.Dialogs
import QtQuick.Templates as Templates

Item {
    id: dialogs
    required property var bar
    readonly property var files: bar.files
    property var parentWindow: Window.window

    function open() { present(opening) }
    function save() {
        saving.selectedFile = files.proposedFile(saving.currentFolder)
        present(saving)
    }

    // Where the desktop has no dialog of its own, the toolkit's comes up inside the parent, and
    // the phone is too narrow for it: then it gets a window.
    function present(dialog) {
        const popups = Templates.Overlay.overlay.children.length
        dialog.open()
        if (parentWindow !== spare && Templates.Overlay.overlay.children.length > popups) {
            dialog.close()
            parentWindow = spare
            dialog.open()
        }
        spare.visible = parentWindow === spare
    }

    component TimetableDialog: FileDialog {
        parentWindow: dialogs.parentWindow
        currentFolder: dialogs.files.documents()
        nameFilters: [dialogs.files.text("TIMETABLE_FILES") + " (*.gexlo)",
                      dialogs.files.text("ALL_FILES") + " (*)"]
        rejectLabel: dialogs.files.text("CANCEL_BUTTON")
        onVisibleChanged: if (!visible) spare.hide()
    }
    TimetableDialog {
        id: opening
        title: dialogs.files.text("OPEN_FILE").replace("…", "")
        acceptLabel: dialogs.files.text("OPEN_FILE_BUTTON")
        onAccepted: dialogs.files.open(selectedFile)
    }
    TimetableDialog {
        id: saving
        title: dialogs.files.text("SAVE_FILE").replace("…", "")
        acceptLabel: dialogs.files.text("SAVE_FILE_BUTTON")
        fileMode: FileDialog.SaveFile
        // Not every desktop's dialog asks, so that it is asked afterwards.
        options: FileDialog.DontConfirmOverwrite
        onAccepted: dialogs.files.save(selectedFile)
    }

    Window {
        id: spare
        transientParent: dialogs.Window.window
        modality: Qt.WindowModal
        title: saving.visible ? saving.title : opening.title
        width: 600
        height: 400
        minimumWidth: width; maximumWidth: width
        minimumHeight: height; maximumHeight: height
        onClosing: { opening.close(); saving.close() }
    }
}
