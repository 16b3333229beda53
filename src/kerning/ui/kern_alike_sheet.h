#pragma once

#include "kerning/look_alikes.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace quillery {

class TextLabel;

/// Offers to give the value of a pair to the pairs of what looks alike on either side of it. Pairs
/// that have a value already are not offered.
class KernAlikeSheet : public QDialog {
  Q_OBJECT
public:
  /// The pair is there, and so are its glyphs.
  KernAlikeSheet(ProjectManager& manager, const Uuid& pair, QWidget* parent);

private:
  QListWidget* makeList(const QString& objectName, const QString& title,
                        const std::vector<Uuid>& glyphs);
  QLayout* makeButtons();
  std::vector<LookAlikePair> chosen() const;
  void choiceChanged();

  ProjectManager& manager_;
  Finite value_;
  QListWidget* lefts_;
  QListWidget* rights_;
  TextLabel* sum_;
  QPushButton* kern_;
};

} // namespace quillery
