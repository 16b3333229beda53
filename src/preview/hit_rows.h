#pragma once

#include "base/geometry.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace quillery {

/// Rectangles of a set text, listed line by line, in which those under a point are looked up among
/// the lines that the point can be in.
template <typename Info> class HitRows {
public:
  HitRows() = default;
  explicit HitRows(std::vector<Info> infos) : infos_(std::move(infos)) {
    for (std::size_t i = 0; i < infos_.size(); ++i) {
      const Rect& bounds = infos_[i].bounds;
      if (!rows_.empty() && rows_.back().top == bounds.minY()) continue;
      // Lines run upwards, or nowhere, where the font's ascender lies below its descender.
      if (!rows_.empty() && !(rows_.back().top < bounds.minY())) descending_ = false;
      rows_.push_back({bounds.minY(), bounds.maxY(), i});
    }
  }

  const std::vector<Info>& infos() const { return infos_; }

  /// The first whose bounds contain the point.
  std::optional<std::size_t> at(Point point) const {
    auto row = rows_.begin();
    if (descending_)
      row =
          std::partition_point(row, rows_.end(), [&](const Row& r) { return r.bottom <= point.y; });
    for (; row != rows_.end(); ++row) {
      if (!(row->top <= point.y && point.y < row->bottom)) {
        if (descending_) break;
        continue;
      }
      const std::size_t end = row + 1 == rows_.end() ? infos_.size() : (row + 1)->begin;
      for (std::size_t i = row->begin; i < end; ++i)
        if (infos_[i].bounds.contains(point)) return i;
    }
    return std::nullopt;
  }

private:
  struct Row {
    double top;
    double bottom;
    std::size_t begin;
  };

  std::vector<Info> infos_;
  std::vector<Row> rows_;
  bool descending_ = true; // every row begins below the one before
};

} // namespace quillery
