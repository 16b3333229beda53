#pragma once

#include "kerning/glyph_name_search.h"

#include <QAbstractListModel>

namespace quillery {

/// The glyphs that a picker offers, by name.
class GlyphCandidatesModel : public QAbstractListModel {
  Q_OBJECT
public:
  GlyphCandidatesModel(GlyphNameSearch::Glyphs glyphs, QObject* parent)
      : QAbstractListModel(parent), search_(std::move(glyphs)) {}

  const GlyphNameSearch& candidates() const { return search_; }

  void setText(const QString& text) {
    beginResetModel();
    search_.setText(text.toStdString());
    endResetModel();
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(search_.size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    return QString::fromStdString(search_[static_cast<std::size_t>(index.row())].name);
  }

private:
  GlyphNameSearch search_;
};

} // namespace quillery
