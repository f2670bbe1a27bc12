#pragma once

#include <cstdint>
#include <new>
#include <stdexcept>
#include <string_view>

#include "frame/FileObject.h"
#include "frame/Log.h"

namespace orvale {

/// What ends an operation in its failure result.
struct OperationFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Fails the operation under way unless a condition holds.
inline void Require(bool condition, const char* what = "the operation fails") {
    if (!condition) throw OperationFailure(what);
}

/// What an operation tells the log by itself: lines that are each a head, " : " and a word. Which it has is its own.
struct OperationLines {
    std::u16string_view head;  ///< such as "ORVALE - CQZSFile::Read"
    unsigned words;            ///< of Operation::Words
};

/// The guard at the head of an operation of a format class: it gathers what the operation writes, hands it over before
/// success is told, turns every exception into the failure result, and writes the operation's lines to the log.
class Operation {
 public:
    enum Words : unsigned { kBegin = 1, kSucceeded = 2, kFailed = 4, kFinish = 8, kAll = 15 };

    Operation(CFileObject& file, const OperationLines& lines) noexcept : file_(file), lines_(lines), gathering_(file) {
        Line(kBegin, u"Begin");
    }
    Operation(CFileObject& file, std::u16string_view head, unsigned words = kAll) noexcept
        : Operation(file, OperationLines{head, words}) {}
    ~Operation() { Line(kFinish, u"Finish"); }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    /// Runs the operation's body: 1, or 0 if it threw, if what it wrote could not be handed over, or if one of its
    /// steps found no memory, whatever became of that step: what is missing then would go unseen.
    template <class Body>
    std::int32_t Run(Body&& body) noexcept {
        try {
            body();
            if (file_.Shortage()) throw std::bad_alloc();
            file_.HandOver();
        } catch (const std::bad_alloc&) {
            file_.Shortage() = !gathering_.IsOutermost() || file_.KeepsShortage();
            return Fail();
        } catch (...) {
            return Fail();
        }
        Line(kSucceeded, u"Succeeded");
        return 1;
    }

    /// A line of this operation beside the usual ones.
    void Tell(std::u16string_view word) const noexcept { LogFormat(u"%s : %s\r\n", lines_.head, word); }

    /// From here on the operation writes no line.
    void Silence() noexcept { lines_.words = 0; }

 private:
    std::int32_t Fail() const noexcept {
        HandOverRest();
        Line(kFailed, u"Failed");
        return 0;
    }

    // What was written before the failure stays in the file, as far as the system takes it.
    void HandOverRest() const noexcept {
        try {
            file_.HandOver();
        } catch (...) {
        }
    }

    void Line(Words line, std::u16string_view word) const noexcept {
        if ((lines_.words & line) != 0) Tell(word);
    }

    CFileObject& file_;
    OperationLines lines_;
    CFile::Gathering gathering_;
};

}  // namespace orvale
