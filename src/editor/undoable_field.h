#pragma once

#include "project/project_manager.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace quillery {

/// A value of the document that a control edits, wherever it lies. Setting it runs its rules and
/// announces the change.
template <typename T> struct ValueBinding {
  std::function<T()> get;
  std::function<void(const T&)> set;
};

/// Registers the step that puts `from` back in place of `to`, and on redo the other way round.
template <typename T>
void registerChange(ProjectManager& manager, const ValueBinding<T>& binding, const T& from,
                    const T& to, const std::string& actionName) {
  manager.undoManager().registerUndo([&manager, binding, from, to, actionName] {
    binding.set(from);
    registerChange(manager, binding, to, from, actionName);
  });
  manager.undoManager().setActionName(actionName);
}

/// Equal, or both no number: that differs from itself, but nobody has changed it.
template <typename T> bool isSame(const T& a, const T& b) {
  if constexpr (std::is_floating_point_v<T>)
    if (std::isnan(a) && std::isnan(b)) return true;
  return a == b;
}

/// An edit of one value from its first touch to its last, recorded as one undo step.
template <typename T> class UndoableEdit {
public:
  UndoableEdit(ProjectManager& manager, ValueBinding<T> binding, std::string actionName)
      : state_(std::make_shared<State>(manager, std::move(binding), std::move(actionName))) {}

  const ValueBinding<T>& binding() const { return state_->binding; }
  bool isOpen() const { return state_->startValue.has_value(); }

  /// Captures the value that undoing brings back. Nothing happens when the edit is open already.
  void begin() {
    if (isOpen()) return;
    state_->manager.beginEdit(state_);
    state_->startValue = state_->binding.get();
  }

  /// Registers the step, unless the value is what it was.
  void end() { state_->end(); }

  /// Puts the value back; nothing is registered. The edit stays open.
  void restore() {
    if (state_->hasChanged()) state_->binding.set(*state_->startValue);
  }

private:
  struct State : OpenEdit {
    State(ProjectManager& owner, ValueBinding<T> value, std::string name)
        : manager(owner), binding(std::move(value)), actionName(std::move(name)) {}

    bool hasChanged() const override { return startValue && !isSame(*startValue, binding.get()); }

    void end() override {
      const bool changed = hasChanged();
      const auto start = std::exchange(startValue, std::nullopt);
      if (changed) registerChange(manager, binding, *start, binding.get(), actionName);
    }

    ProjectManager& manager;
    ValueBinding<T> binding;
    std::string actionName;
    std::optional<T> startValue;
  };

  std::shared_ptr<State> state_;
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
FieldFormat<std::string> textFormat();
/// One user-perceived character; more are dropped. Empty text is no character.
FieldFormat<std::optional<std::string>> characterFormat();

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
    if constexpr (std::is_same_v<T, std::optional<std::string>>) showValue();
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
