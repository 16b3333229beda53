#pragma once

#include "project/project_manager.h"
#include "project/value_step.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace quillery {

/// An edit of one value from its first touch to its last, recorded as one undo step.
template <typename T> class UndoableEdit {
public:
  UndoableEdit(ProjectManager& manager, ValueBinding<T> binding, std::string actionName)
      : manager_(&manager), binding_(std::move(binding)), actionName_(std::move(actionName)) {}

  const ValueBinding<T>& binding() const { return binding_; }
  bool isOpen() const { return edit_.isOpen(); }

  /// Captures the value that undoing brings back. Nothing happens when the edit is open already.
  void begin() {
    if (isOpen()) return;
    edit_ =
        manager_->beginEdit(actionName_, std::make_unique<ValueStep<T>>(binding_, binding_.get()));
  }
  /// Registers the step, unless the value is what it was.
  void end() { edit_.end(); }
  /// Puts the value back; nothing is registered. The edit stays open.
  void restore() {
    if (!isOpen()) return;
    edit_.cancel();
    begin();
  }

private:
  ProjectManager* manager_;
  ValueBinding<T> binding_;
  std::string actionName_;
  OpenEdit edit_;
};

/// How a value is typed and shown.
template <typename T> struct FieldFormat {
  /// Nothing for text that is no value.
  std::function<std::optional<T>(const std::string&)> parse;
  std::function<std::string(const T&)> show;
};

/// Doubles as C conversion reads them (infinity, hexadecimal and so on included), shown as whole
/// numbers.
FieldFormat<double> numberFormat();
/// 64-bit integers with an optional sign, and nothing else.
FieldFormat<std::int64_t> integerFormat();
FieldFormat<Utf8> textFormat();
/// One user-perceived character; more are dropped. Empty text is no character.
FieldFormat<std::optional<Utf8>> characterFormat();

/// A text field whose whole edit, from gaining focus to losing it, is one undo step. The value
/// follows every keystroke that makes one.
template <typename T> class UndoableField {
public:
  UndoableField(ProjectManager& manager, ValueBinding<T> binding, FieldFormat<T> format,
                std::string actionName)
      : edit_(manager, std::move(binding), std::move(actionName)), format_(std::move(format)) {
    showValue();
  }

  /// What the field shows.
  const std::string& text() const { return text_; }

  void type(std::string text) {
    // The edit may have been ended from elsewhere since the field gained focus.
    edit_.begin();
    text_ = std::move(text);
    const auto value = format_.parse(text_);
    if (value && *value != edit_.binding().get()) edit_.binding().set(*value);
    // Text that shows its value drops what is no part of it at once.
    if constexpr (std::is_same_v<T, std::optional<Utf8>>) showValue();
  }

  void focusIn() { edit_.begin(); }

  void focusOut() {
    showValue();
    edit_.end();
  }

  /// Return was pressed: what was typed so far is one step, and the next begins.
  void commit() {
    focusOut();
    focusIn();
  }

  /// Escape was pressed: the value is what it was when the field gained focus.
  void restore() {
    edit_.restore();
    showValue();
  }

  /// The document changed. Text being typed stays.
  void refresh() {
    if (!edit_.isOpen()) showValue();
  }

private:
  void showValue() { text_ = format_.show(edit_.binding().get()); }

  UndoableEdit<T> edit_;
  FieldFormat<T> format_;
  std::string text_;
};

/// A value of the font as a whole.
template <typename T>
ValueBinding<T> fontInfoBinding(ProjectManager& manager, T FontInfo::*member) {
  return {[&manager, member] { return manager.currentProject().*member; },
          [&manager, member](const T& value) {
            manager.editFontInfo([&](FontInfo& font) { font.*member = value; });
          }};
}

} // namespace quillery
