// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace ui {

/// Why an operation failed: one sentence (UTF-8) that names the file, where there is one, and the cause.
struct Failure {
    std::string message;
};

/// A failure as a user is told of it: first what it means, and below that the cause.
[[nodiscard]] inline Failure Consequence(std::string meaning, const Failure& cause) {
    return {std::move(meaning) + "\n\n" + cause.message};
}

/// Either the value of an operation that succeeded or the reason why it failed.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value)
        : m_state(std::in_place_index<0>, std::move(value)) {}

    Result(Failure failure)
        : m_state(std::in_place_index<1>, std::move(failure)) {}

    [[nodiscard]] bool ok() const { return m_state.index() == 0; }

    explicit operator bool() const { return ok(); }

    [[nodiscard]] const T& value() const& {
        assert(ok());
        return *std::get_if<0>(&m_state);
    }

    [[nodiscard]] T&& value() && {
        assert(ok());
        return std::move(*std::get_if<0>(&m_state));
    }

    /// The reason; only of a failed result.
    [[nodiscard]] const Failure& failure() const {
        assert(!ok());
        return *std::get_if<1>(&m_state);
    }

private:
    std::variant<T, Failure> m_state;
};

/// The result of an operation that yields nothing but success.
class [[nodiscard]] Status {
public:
    Status() = default;

    Status(Failure failure)
        : m_failure(std::move(failure)) {}

    [[nodiscard]] bool ok() const { return !m_failure.has_value(); }

    explicit operator bool() const { return ok(); }

    /// The reason; only of a failed status.
    [[nodiscard]] const Failure& failure() const {
        assert(!ok());
        return *m_failure;
    }

private:
    std::optional<Failure> m_failure;
};

} // namespace ui
