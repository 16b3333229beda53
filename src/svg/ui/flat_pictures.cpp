#include "svg/ui/flat_pictures.h"

#include "base/file.h"
#include "desktop/shown_text.h"
#include "svg/flat_outline.h"

namespace quillery {
namespace {

using Picture = FlatPictures::Picture;

constexpr std::size_t kMostUnderway = 2; // the rest of the machine is for the window
constexpr std::size_t kMostWanted = 64;  // more rows than a screen shows

Picture flatten(DrawingFlattener& flattener, const std::filesystem::path& file) {
  FileBytes bytes;
  if (const auto read = readFile(file, bytes); !read)
    return {Picture::State::failed, {}, {}, shownText(read.error().description())};
  const auto flat = flattener.flatten(bytes.view());
  if (!flat) return {Picture::State::failed, {}, {}, shownText(flat.error())};
  auto [outline, box] = flatOutline(flat.value());
  return {Picture::State::ready, std::move(outline), box, {}};
}

} // namespace

FlatPictures::FlatPictures(Desktop& desktop, std::vector<std::filesystem::path> files,
                           QObject* parent)
    : QObject(parent), desktop_(desktop), files_(std::move(files)) {}

const Picture& FlatPictures::picture(std::size_t place) {
  const auto [known, isNew] = pictures_.try_emplace(place);
  if (isNew) {
    wanted_.push_back(place);
    if (wanted_.size() > kMostWanted) { // scrolled past
      pictures_.erase(wanted_.front());
      wanted_.pop_front();
    }
    startNext();
  }
  return known->second;
}

void FlatPictures::startNext() {
  const auto flattener = desktop_.drawingFlattener();
  while (flattener && underway_ < kMostUnderway && !wanted_.empty()) {
    const std::size_t place = wanted_.back();
    wanted_.pop_back();
    ++underway_;
    // The desktop outlives all work in the background, this may not.
    const auto taken = lifetime_.guard([this, place](const std::shared_ptr<Picture>& picture) {
      take(place, std::move(*picture));
    });
    desktop_.runInBackground([&desktop = desktop_, flattener, file = files_[place], taken] {
      const auto picture = std::make_shared<Picture>(flatten(*flattener, file));
      desktop.postToMain([taken, picture] { taken(picture); });
    });
  }
}

void FlatPictures::take(std::size_t place, Picture picture) {
  --underway_;
  pictures_.insert_or_assign(place, std::move(picture));
  Q_EMIT changed(static_cast<int>(place));
  startNext();
}

} // namespace quillery
