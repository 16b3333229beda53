#pragma once

#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QFrame>
#include <QLabel>
#include <QToolButton>
#include <QVariantAnimation>

class QBoxLayout;

namespace quillery {

// Every control has an object name that says what it is for ("exportButton"), by which tests find
// it, and an accessible name in the user's language. The constructors ask for what they can't
// derive: where a control shows no text, its title is its accessible name and its tool tip.

/// Text in a style of the type scale and the colour of a role.
class TextLabel : public QLabel {
  Q_OBJECT
public:
  TextLabel(const QString& text, TextStyle style, Role role = Role::text,
            QWidget* parent = nullptr);

  void setRole(Role role);

private:
  void follow();

  TextStyle style_;
  Role role_;
};

/// One line that gives way where there is no room for all of it; its tool tip says the whole then.
class ElidedLabel : public TextLabel {
  Q_OBJECT
public:
  ElidedLabel(const QString& text, TextStyle style, Qt::TextElideMode elision,
              Role role = Role::text, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  QString shown() const;

  Qt::TextElideMode elision_;
};

/// A symbol beside or above words that say the same; assistive technology passes over it.
class SymbolLabel : public QWidget {
  Q_OBJECT
public:
  SymbolLabel(Symbol symbol, int size, Role role = Role::textSecondary, QWidget* parent = nullptr);

  void setSymbol(Symbol symbol, Role role);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  Symbol symbol_;
  Role role_;
};

/// The heading of a section of a panel, with room for a control at its end. Screen readers read
/// it as the text that it is.
class SectionHeader : public QWidget {
  Q_OBJECT
public:
  explicit SectionHeader(const QString& title, QWidget* parent = nullptr);

  /// Puts a control at the end of the row and owns it.
  void addTrailing(QWidget* control);

private:
  QBoxLayout* row_;
};

/// A square button without a frame that shows a symbol.
class IconButton : public QToolButton {
  Q_OBJECT
public:
  IconButton(Symbol symbol, const QString& title, QWidget* parent = nullptr);

  void setSymbol(Symbol symbol, Role role = Role::text);
};

/// A small green pill of a few words with a symbol, such as "Saved!". Comes and goes with a short
/// fade.
class Badge : public QWidget {
  Q_OBJECT
public:
  Badge(Symbol symbol, const QString& text, QWidget* parent = nullptr);

  /// Lets it fade and grow in, or out; it takes its room in the layout in both cases. At first it
  /// is out.
  void setPresented(bool presented);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  Symbol symbol_;
  QString text_;
  bool presented_ = false;
  double presence_ = 0; // 0 gone, 1 there
  QVariantAnimation animation_;
};

/// Turns while something of unknown length goes on.
class Spinner : public QWidget {
  Q_OBJECT
public:
  explicit Spinner(int size = 32, QWidget* parent = nullptr);

  QSize sizeHint() const override { return {size_, size_}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

private:
  int size_;
  QVariantAnimation turn_;
};

/// A line between regions.
QFrame* makeSeparator(Qt::Orientation orientation, QWidget* parent = nullptr);

} // namespace quillery
