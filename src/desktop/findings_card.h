#pragma once

#include <QFrame>
#include <functional>
#include <vector>

class QVBoxLayout;

namespace quillery {

/// What was found wrong, one below the other on a raised card: each with a symbol, a sentence and
/// the links that put it right.
class FindingsCard : public QFrame {
  Q_OBJECT
public:
  struct Link {
    QString objectName;
    QString title;
    std::function<void()> run;
  };

  explicit FindingsCard(QWidget* parent = nullptr);

  void clear();
  void add(bool critical, const QString& sentence, const std::vector<Link>& links);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QVBoxLayout* rows_;
};

} // namespace quillery
