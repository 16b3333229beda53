#pragma once

#include "kerning/glyph_name_search.h"

#include <QAbstractListModel>

namespace quillery {

/// The names that a picker offers.
class GlyphCandidatesModel : public QAbstractListModel {
  Q_OBJECT
public:
  GlyphCandidatesModel(GlyphNameSearch::Names names, QObject* parent)
      : QAbstractListModel(parent), search_(std::move(names)) {}

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
    return QString::fromStdString(search_[static_cast<std::size_t>(index.row())]);
  }

private:
  GlyphNameSearch search_;
};

} // namespace quillery
