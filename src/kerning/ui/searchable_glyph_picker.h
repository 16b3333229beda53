#pragma once

#include "kerning/glyph_name_search.h"

#include <QWidget>

class QLineEdit;
class QListView;

namespace quillery {

class GlyphCandidatesModel;

/// A field that finds a glyph by its name. While it has the focus, a list of the names that contain
/// what is typed lies under it, over its neighbours. A click, or Return, chooses one; typing alone
/// does not change the selection.
///
/// The object names of field and list are the picker's with "Field" and "List" behind.
class SearchableGlyphPicker : public QWidget {
  Q_OBJECT
public:
  SearchableGlyphPicker(const QString& objectName, const QString& label,
                        GlyphNameSearch::Names glyphs, QWidget* parent);

  /// The chosen name; empty at first.
  const std::string& selection() const { return selection_; }

Q_SIGNALS:
  /// A name was chosen, and the focus given up.
  void chosen();

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

  QLineEdit* field_;
  GlyphCandidatesModel* model_;
  QListView* list_;
  std::string selection_;
};

} // namespace quillery
