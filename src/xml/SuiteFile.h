#pragma once

#include <cstdint>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "frame/FileObject.h"
#include "frame/Operation.h"
#include "xml/ElementTable.h"
#include "xml/XMLDocument.h"

namespace orvale {

/// Fails the operation unless a condition holds, with a line if there is one.
inline void Require(const Operation& operation, bool condition, std::u16string_view line) {
    if (!condition && !line.empty()) operation.Tell(line);
    Require(condition);
}

/// A node without which the operation fails.
inline NodeHandle RequireNode(NodeHandle node) {
    Require(static_cast<bool>(node));
    return node;
}
inline NodeHandle RequireNode(const Operation& operation, NodeHandle node, std::u16string_view line) {
    Require(operation, static_cast<bool>(node), line);
    return node;
}

/// What tells a suite's document from the others.
struct SuiteNames {
    std::u16string_view root;
    std::u16string_view identifier;  ///< the root's `id`
    std::u16string_view entries;     ///< the element that holds the records
    std::u16string_view entry;       ///< the element of a record
};

/// The lines of Open. A step's line is empty in a class that has none for it.
struct OpenLines {
    std::u16string_view head;
    unsigned words = Operation::kAll;
    std::u16string_view notCreated = {};
    std::u16string_view notLoaded = {};
};

/// The lines of the steps that start a document, likewise.
struct StartLines {
    std::u16string_view empty = {};
    std::u16string_view header = {};
    std::u16string_view root = {};
    std::u16string_view noRoot = {};
    std::u16string_view attributes = {};
};

/// What the four suite documents have in common: one XML file with a `profile`, which tells what a phone can store, and
/// an element of entries with one element for each record.
///
/// The document is in memory as a whole. Reading parses it at Open; writing builds it call by call, and Close saves it,
/// if the open flags are exactly kCreateReadWrite. The stream of the file object stays closed.
///
/// Opened stays set after Close: the document can still be walked, written to and saved by another Close.
class SuiteFile : public CFileObject {
 public:
    using CFileObject::Open;
    /// Only the flags 0 read the file.
    std::int32_t Open(const char16_t* fileName, const std::uint32_t* openFlags) final;

    /// Judges the root's `id`: neither its name nor its version counts, and a document that is being written has no
    /// `id` here.
    std::int32_t Verify() override;

    void GetProfile(const void** profile) final;

 protected:
    SuiteFile(const SuiteNames& names, const OpenLines& openLines);

    /// What GetProfile gives.
    virtual const void* OwnProfile() const = 0;

    bool HasDocument() const { return opened_; }
    CXMLDocument& Document() { return *document_; }
    NodeHandle Entries() const { return entries_; }

    // ---- reading

    /// The document's `profile`; without one the operation fails with a line.
    NodeHandle FindProfile(const Operation& operation);

    /// Finds the element of entries. That there is none is no failure before the first Read.
    void FindEntries() { entries_ = document_->FindChild(names_.entries, {}); }

    /// The next record's element, in whatever case its name stands. None behind the last; the one after that is the
    /// first again.
    NodeHandle NextEntry();

    // ---- writing

    /// Drops all that the document holds, entries too, and makes header and root: without a root the operation fails.
    NodeHandle StartDocument(const Operation& operation, const StartLines& lines = {});

    /// Makes the element of entries; none where that fails.
    NodeHandle StartEntries(NodeHandle root);

    /// Makes the element of a record and in it the comment "NO.1" and on, whose numbers go on for the life of the
    /// object; none where that fails. EndEntry ends it.
    NodeHandle StartEntry();
    void EndEntry(NodeHandle entry) { AddIndent(*document_, entry, 2); }

    /// Puts the closing tags of entries and root on lines of their own and saves, if that is what the file was opened
    /// for and it wasn't saved as it is before. What failed to be saved is tried again by the next Close.
    void SaveDocument();

    /// Runs a step that ends where it fails, without harm to the others. One that finds no memory fails the operation.
    template <class Body>
    bool Contained(Body body) noexcept {
        try {
            body();
            return true;
        } catch (const std::bad_alloc&) {
            Shortage() = true;
            return false;
        } catch (...) {
            return false;
        }
    }

 private:
    void OpenDocument(const Operation& operation, const char16_t* fileName, const std::uint32_t* openFlags);

    const SuiteNames names_;
    const OpenLines openLines_;
    std::optional<CXMLDocument> document_;
    std::uint32_t openFlags_ = 0;
    bool opened_ = false;
    bool saved_ = false;  // as it is
    NodeHandle entries_;
    NodeHandle current_;
    std::u16string identifier_;
    std::int32_t nextNumber_ = 1;
};

}  // namespace orvale
