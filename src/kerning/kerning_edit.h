#pragma once

#include "project/project_manager.h"

namespace quillery {

/// What controls offer for a kerning value, in font units. Files may hold values beyond, which
/// stay until they are edited.
inline constexpr double kLeastKerning = -200;
inline constexpr double kGreatestKerning = 200;

/// The value within the offered range.
Finite clampedKerning(double value);

/// Enters a value, brought into the offered range, as one undo step of its own.
void enterKerningValue(ProjectManager& manager, const Uuid& pair, double value);

/// A change of one pair's value from its first touch to its last, recorded as one undo step. When
/// it was ended from outside, it takes no more values until it is begun again.
class KerningEdit {
public:
  explicit KerningEdit(ProjectManager& manager) : manager_(manager) {}
  ~KerningEdit() { end(); }
  KerningEdit(const KerningEdit&) = delete;
  KerningEdit& operator=(const KerningEdit&) = delete;

  /// Captures the value that undoing brings back; what was open before ends. Nothing is begun for a
  /// pair that is not there.
  void begin(const Uuid& pair);
  /// Sets the value, brought into the offered range.
  void set(double value);
  /// Registers the step, unless the value is what it was.
  void end() { edit_.end(); }
  /// Puts the value back and ends; nothing is registered.
  void cancel() { edit_.cancel(); }

  /// The pair being edited; null when none is, or it has gone. Good until the next edit.
  const KerningPair* pair() const;
  /// The value at the beginning.
  double startValue() const { return startValue_; }

private:
  ProjectManager& manager_;
  OpenEdit edit_;
  Uuid pair_;
  Finite startValue_;
};

} // namespace quillery
