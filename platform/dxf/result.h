#pragma once

#include <string>
#include <utility>
#include <variant>

namespace kovra {

/// What went wrong, for callers that act on it; the message is for people.
enum class ErrorKind {
  kNotFound,       ///< no such file, record, entry
  kNotReadable,    ///< the file can't be read
  kNotWritable,    ///< the file can't be written: rights, full disk, read-only place
  kChangedOnDisk,  ///< the file isn't the one that was opened any more
  kBadFormat,      ///< the content isn't what it should be
  kInvalidInput,   ///< an argument is out of its range
  kNotSupported,
};

/// A failure as a value. The message is UTF-8, one line, without a period at its end.
struct Error {
  ErrorKind kind = ErrorKind::kInvalidInput;
  std::string message;
};

/// A value or the error that stands in its place.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T content) : state_(std::in_place_index<0>, std::move(content)) {}
  Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

  bool ok() const { return state_.index() == 0; }
  explicit operator bool() const { return ok(); }
  /// Only when ok().
  T& value() & { return std::get<0>(state_); }
  const T& value() const& { return std::get<0>(state_); }
  T&& value() && { return std::get<0>(std::move(state_)); }
  /// Only when not ok().
  const Error& error() const { return std::get<1>(state_); }

 private:
  std::variant<T, Error> state_;
};

/// Success, or the error that stands in its place.
template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : error_(std::move(error)), ok_(false) {}

  bool ok() const { return ok_; }
  explicit operator bool() const { return ok_; }
  /// Only when not ok().
  const Error& error() const { return error_; }

 private:
  Error error_;
  bool ok_ = true;
};

}  // namespace kovra
