#pragma once

class QApplication;

namespace quillery {

/// Gives the keys that edit text to the text field that has the focus, before any shortcut of the
/// window: deleting a word there must not delete glyphs. Undo and redo are left to each field, for
/// some have a history of their own and others share the project's.
void giveEditingKeysToTextFields(QApplication& application);

} // namespace quillery
