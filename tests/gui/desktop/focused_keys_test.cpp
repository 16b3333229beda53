#include "gui/desktop/gui_test.h"

#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace quillery;
using namespace quillery::test;

class FocusedKeysTest : public QObject {
  Q_OBJECT
private Q_SLOTS:
  void init() { failOnWarnings(); }

  void aKeyThatEditsTextIsTheFieldsAndOtherwiseTheWindows() {
    QMainWindow window;
    auto* const body = new QWidget;
    auto* const line = new QLineEdit(body);
    auto* const text = new QPlainTextEdit(body);
    auto* const shown = new QLineEdit(body);
    shown->setReadOnly(true);
    auto* const button = new QPushButton(body);
    auto* const column = new QVBoxLayout(body);
    for (QWidget* widget : std::initializer_list<QWidget*>{line, text, shown, button})
      column->addWidget(widget);
    window.setCentralWidget(body);
    int run = 0;
    for (const QKeySequence keys :
         {Qt::CTRL | Qt::Key_Backspace, Qt::CTRL | Qt::Key_Delete, Qt::CTRL | Qt::Key_Left,
          Qt::CTRL | Qt::SHIFT | Qt::Key_Right, Qt::CTRL | Qt::Key_A, Qt::CTRL | Qt::Key_V,
          Qt::CTRL | Qt::Key_N, QKeyCombination(Qt::Key_Delete), QKeyCombination(Qt::Key_F)}) {
      auto* const action = window.addAction(keys.toString());
      action->setShortcut(keys);
      connect(action, &QAction::triggered, this, [&run] { ++run; });
    }
    bringUp(window);

    struct Row {
      QKeyCombination key;
      const char* left; // of "one two"
    };
    const Row rows[] = {{Qt::CTRL | Qt::Key_Backspace, "one "},
                        {QKeyCombination(Qt::Key_F), "one twof"},
                        {QKeyCombination(Qt::Key_Backspace), "one tw"}};
    for (const auto& [key, left] : rows) {
      line->setText(u"one two"_s);
      text->setPlainText(u"one two"_s);
      text->moveCursor(QTextCursor::End);
      for (QWidget* field : std::initializer_list<QWidget*>{line, text}) {
        field->setFocus();
        QTest::keyClick(field, key.key(), key.keyboardModifiers());
      }
      QCOMPARE(line->text(), QString::fromLatin1(left));
      QCOMPARE(text->toPlainText(), QString::fromLatin1(left));
    }
    line->setText(u"one two"_s);
    line->setFocus();
    QTest::keyClick(line, Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(line->cursorPosition(), 4);
    QTest::keyClick(line, Qt::Key_Delete, Qt::ControlModifier);
    QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(line->selectedText(), u"one "_s);
    QCOMPARE(run, 0);
    QTest::keyClick(line, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(run, 1);
    // Nothing can be deleted where nothing can be typed.
    shown->setFocus();
    QTest::keyClick(shown, Qt::Key_Backspace, Qt::ControlModifier);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Backspace, Qt::ControlModifier);
    QCOMPARE(run, 3);
  }

  void returnPressesTheFocusedButtonAndOtherwiseTheDefaultOne() {
    QDialog dialog;
    auto* const column = new QVBoxLayout(&dialog);
    auto* const field = new QLineEdit;
    auto* const action = new QPushButton;
    auto* const other = new QPushButton;
    auto* const tool = new QToolButton;
    column->addWidget(field);
    QString pressed;
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{action, other, tool}) {
      column->addWidget(button);
      connect(button, &QAbstractButton::clicked, this, [&, button] {
        pressed += button == action ? u'a' : button == other ? u'o' : u't';
      });
    }
    action->setDefault(true);
    other->setAutoDefault(false); // which the toolkit takes for leave to press another
    bringUp(dialog);
    for (QWidget* focused : std::initializer_list<QWidget*>{field, other, tool, action, field}) {
      focused->setFocus();
      QTest::keyClick(focused, Qt::Key_Return);
    }
    other->setEnabled(false);
    QTest::keyClick(other, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(pressed, u"aotaaa"_s);
  }
};

int main(int argc, char** argv) {
  return runWithTheme<FocusedKeysTest>(argc, argv);
}

#include "focused_keys_test.moc"
