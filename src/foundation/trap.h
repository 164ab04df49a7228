// The one error convention: a routine of substance catches whatever fails in it, tells it in one line, and is left.
#pragma once

#include "foundation/log.h"
#include "foundation/runtime_error.h"

#include <optional>
#include <string>
#include <string_view>

namespace ombrin {

struct Failure {
    int number = 0;
    std::string description;
};

/// What is being handled in a catch block, as number and text.
Failure CurrentFailure();

class Trap {
public:
    explicit Trap(Log& log) : log(log) {}

    /// Runs the body. What it raises is shown in a plain box and logged under the routine's name (a form's routine adds
    /// the name of its file), and the answer is false: nothing is retried, the caller goes on. Only the program's end
    /// passes.
    template <class Body>
    bool operator()(std::string_view routine, Body&& body, std::string_view file = {}) {
        const std::optional<Failure> failure = FailureOf(body);
        if (failure) Report(routine, file, *failure, true);
        return !failure;
    }
    /// The same without the box, for routines whose failure the user is not told of.
    template <class Body>
    bool Quietly(std::string_view routine, Body&& body) {
        const std::optional<Failure> failure = FailureOf(body);
        if (failure) Report(routine, {}, *failure, false);
        return !failure;
    }

    /// Runs the body for who reports in a way of his own. Only the program's end passes.
    template <class Body>
    static std::optional<Failure> FailureOf(Body&& body) {
        try {
            body();
        } catch (const ProgramEnding&) {
            throw;
        } catch (...) {
            return CurrentFailure();
        }
        return std::nullopt;
    }

    Log& log;

private:
    void Report(std::string_view routine, std::string_view file, const Failure& failure, bool showBox);
};

} // namespace ombrin
