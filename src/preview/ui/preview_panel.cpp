#include "preview/ui/preview_panel.h"

#include "desktop/shown_text.h"
#include "desktop/value_slider.h"
#include "desktop/widgets.h"
#include "kerning/kerning_pairs.h"
#include "preview/text_presets.h"
#include "preview/ui/available_characters_view.h"
#include "preview/ui/plain_text_editor.h"
#include "preview/ui/vector_preview_view.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <algorithm>
#include <cmath>

namespace quillery {
namespace {

constexpr double kLeastSize = 12;
constexpr double kGreatestSize = 144;
constexpr double kFirstSize = 48;
constexpr int kSliderWidth = 120;
constexpr int kSizeLabelWidth = 40;
constexpr int kEditorHeight = 84;
constexpr QSize kEditorInsets(8, 8);
constexpr int kCharactersHeight = 200; // at most
// What the preview keeps before the characters go, and before they have a second line.
constexpr int kLeastPreviewHeight = 40;
constexpr int kPreviewBesideLines = 112;

QString withoutMnemonic(QString title) {
  return title.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

PreviewPanel::PreviewPanel(ProjectManager& manager, QWidget* parent)
    : QWidget(parent), manager_(manager), presets_(new QToolButton(this)),
      size_(new ValueSlider(kLeastSize, kGreatestSize, 1, this)),
      sizeLabel_(new TextLabel({}, TextStyle::caption, Role::textSecondary, this)),
      header_(makeHeader()), editor_(new MacTextEditor(this)),
      preview_(new VectorPreviewView(manager, this)),
      characters_(new AvailableCharactersView(manager, this)), charactersSection_(makeCharacters()),
      watch_(manager, {{ProjectChange::What::selectedTab}},
             [this](const ProjectChanges&) { followTab(); }) {
  setObjectName(QStringLiteral("previewPanel"));
  setAccessibleName(tr("Font Preview"));
  setAutoFillBackground(true);

  editor_->setObjectName(QStringLiteral("previewText"));
  editor_->setAccessibleName(tr("Preview text"));
  editor_->setInsets(kEditorInsets);
  editor_->setFixedHeight(kEditorHeight);
  const auto setFont = [this] { editor_->setTextFont(Theme::current().font(TextStyle::body)); };
  setFont();
  connect(&Theme::current(), &Theme::changed, this, setFont);
  connect(editor_, &MacTextEditor::textEdited, this, [this](const QString& text) {
    preview_->setText(text.toStdString());
    showPresetOf(preview_->scene().text());
  });
  preview_->onGlyphClicked = [this](const auto& name) { selectGlyphNamed(name); };
  preview_->onPairClicked = [this](const auto& left, const auto& right) {
    selectPair(left, right);
  };
  connect(characters_, &AvailableCharactersView::contentChanged, this, &PreviewPanel::divideHeight);

  auto* const paper = new QWidget(this);
  paper->setBackgroundRole(QPalette::Button);
  paper->setAutoFillBackground(true);
  auto* const inset = new QVBoxLayout(paper);
  inset->setContentsMargins(0, 0, 0, 0);
  inset->addWidget(editor_);

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setSizeConstraint(QLayout::SetNoConstraint); // what gives way has no least height
  column->addWidget(header_);
  column->addWidget(makeSeparator(Qt::Horizontal, this));
  column->addWidget(paper);
  column->addWidget(makeSeparator(Qt::Horizontal, this));
  column->addWidget(preview_, 1);
  column->addWidget(charactersSection_);

  setSize(kFirstSize);
  choosePreset(0);
  followTab();
}

QWidget* PreviewPanel::makeHeader() {
  auto* const header = new QWidget(this);
  auto* const row = new QHBoxLayout(header);
  row->setContentsMargins(grid::unit, 0, grid::unit, 0);
  row->setSpacing(grid::unit);
  row->addWidget(new TextLabel(tr("Font Preview"), TextStyle::headline, Role::text, header));
  row->addStretch(1);

  presets_->setObjectName(QStringLiteral("presetMenu"));
  presets_->setAccessibleName(tr("Sample text"));
  presets_->setToolTip(tr("Choose a sample text"));
  presets_->setPopupMode(QToolButton::InstantPopup);
  presets_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  presets_->setIcon(icon(Symbol::textLines));
  presets_->setAutoRaise(true);
  auto* const menu = new QMenu(presets_);
  auto* const group = new QActionGroup(menu);
  for (std::size_t i = 0; i < textPresets().size(); ++i) {
    QAction* const action = menu->addAction(withoutMnemonic(shownText(textPresets()[i].name)));
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, i] { choosePreset(i); });
  }
  presets_->setMenu(menu);
  row->addWidget(presets_);
  row->addSpacing(grid::unit);

  auto* const caption = new TextLabel(tr("Size:"), TextStyle::caption, Role::text, header);
  caption->setBuddy(size_);
  row->addWidget(caption);
  size_->setObjectName(QStringLiteral("previewSize"));
  size_->setAccessibleName(tr("Preview size"));
  size_->setFixedWidth(kSliderWidth);
  connect(size_, &ValueSlider::moved, this, &PreviewPanel::setSize);
  row->addWidget(size_);
  sizeLabel_->setObjectName(QStringLiteral("previewSizeLabel"));
  sizeLabel_->setFixedWidth(kSizeLabelWidth);
  const auto setFont = [this] {
    sizeLabel_->setFont(Theme::current().numberFont(TextStyle::caption));
  };
  setFont();
  connect(&Theme::current(), &Theme::changed, this, setFont);
  row->addWidget(sizeLabel_);
  return header;
}

QWidget* PreviewPanel::makeCharacters() {
  auto* const section = new QWidget(this);
  auto* const column = new QVBoxLayout(section);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(makeSeparator(Qt::Horizontal, section));
  auto* const inset = new QVBoxLayout;
  inset->setContentsMargins(grid::unit, grid::half, grid::unit, grid::half);
  inset->setSpacing(0);
  inset->addWidget(
      new TextLabel(tr("Available Characters"), TextStyle::caption, Role::textSecondary, section));
  inset->addWidget(characters_, 1);
  column->addLayout(inset, 1);
  return section;
}

void PreviewPanel::choosePreset(std::size_t preset) {
  const TextPreset& chosen = textPresets()[preset];
  namePreset(preset);
  editor_->setText(shownText(chosen.text));
  preview_->setText(chosen.text);
}

void PreviewPanel::namePreset(std::size_t preset) {
  presets_->menu()->actions().at(static_cast<qsizetype>(preset))->setChecked(true);
  presets_->setText(withoutMnemonic(shownText(textPresets()[preset].name)));
}

// Undo brings back the text of the preset before, whose name must come with it.
void PreviewPanel::showPresetOf(const std::string& text) {
  for (std::size_t i = 0; i < textPresets().size(); ++i)
    if (textPresets()[i].text == text) return namePreset(i);
}

void PreviewPanel::setSize(double points) {
  const double whole = std::round(points);
  size_->showValue(whole);
  sizeLabel_->setText(tr("%1pt").arg(whole));
  preview_->setFontSize(whole);
}

void PreviewPanel::followTab() {
  const int tab = manager_.selectedTab();
  preview_->setMode(tab == 0   ? PreviewMode::glyphs
                    : tab == 1 ? PreviewMode::kerning
                               : PreviewMode::none);
}

void PreviewPanel::selectGlyphNamed(const std::string& name) {
  if (const Glyph* glyph = manager_.firstGlyphNamed(name)) manager_.selectGlyph(glyph->id());
}

void PreviewPanel::selectPair(const std::string& leftGlyph, const std::string& rightGlyph) {
  const KerningPair* pair = manager_.firstKerningPair(leftGlyph, rightGlyph);
  manager_.selectKerningPair(
      pair ? pair->id
           : addKerningPair(manager_, Utf8::mended(leftGlyph), Utf8::mended(rightGlyph)));
}

QString PreviewPanel::text() const {
  return editor_->text();
}

QSize PreviewPanel::minimumSizeHint() const {
  const QSize header = header_->minimumSizeHint();
  return {header.width(), header.height() + 2 + kEditorHeight};
}

void PreviewPanel::divideHeight() {
  const int rest = height() - header_->sizeHint().height() - 2 - kEditorHeight; // and two lines
  const int room = std::min(kCharactersHeight, rest - kPreviewBesideLines);
  const int least = charactersSection_->layout()->minimumSize().height(); // with a row of them
  charactersSection_->setVisible(rest - kLeastPreviewHeight >= least);
  const int row = characters_->minimumSizeHint().height();
  const int frame = least - row;
  const int lines = std::max(row, (room - frame) / row * row);
  charactersSection_->setFixedHeight(
      frame + std::max(row, characters_->heightFor(width() - 2 * grid::unit, lines)));
}

void PreviewPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  divideHeight();
}

void PreviewPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  divideHeight();
}

} // namespace quillery
