#pragma once

#include "kerning/glyph_name_search.h"

#include <QWidget>

class QLineEdit;
class QListView;

namespace quillery {

class GlyphCandidatesModel;

/// A field that finds a glyph by its name, or by its character. While it has the focus, a list of
/// what is found lies under it, over its neighbours. A click, or Return, chooses one, and so does
/// leaving the field with the whole of a name in it, or with a character that one glyph has. What
/// was chosen is no longer when something else is typed over it.
///
/// The object names of field and list are the picker's with "Field" and "List" behind.
class SearchableGlyphPicker : public QWidget {
  Q_OBJECT
public:
  SearchableGlyphPicker(const QString& objectName, const QString& label,
                        GlyphNameSearch::Glyphs glyphs, QWidget* parent);

  /// Puts the focus into the field.
  void beginSearch();

  /// The chosen name; empty when there is none.
  const std::string& selection() const { return selection_; }

Q_SIGNALS:
  void selectionChanged();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void showList();
  void placeList();
  void find(const QString& text);
  bool handleKey(int key);
  void moveInList(int key);
  void choose(int candidate);
  void takeMeant();
  void select(const std::string& name);

  QLineEdit* field_;
  GlyphCandidatesModel* model_;
  QListView* list_;
  std::string selection_;
};

} // namespace quillery
