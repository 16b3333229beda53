#pragma once

class QApplication;

namespace quillery {

/// Gives keys to what has the focus before anything else takes them.
///
/// The keys that edit text are the text field's and no shortcut of the window: deleting a word
/// must not delete glyphs. Undo and redo are left to each field, for some have a history of their
/// own and others share the project's. Return presses the button that has the focus, and only
/// where none has it the default button of the dialog. A click takes the ring away from what has
/// the focus, until the Tab key moves it.
void giveKeysToWhatHasTheFocus(QApplication& application);

} // namespace quillery
