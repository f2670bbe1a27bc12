#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/FileObject.h"
#include "frame/Operation.h"
#include "xml/ElementTable.h"
#include "xml/XMLDocument.h"

namespace orvale {

/// What the four suite documents have in common: one XML file with a `profile`, which tells what a phone can store, and
/// an element of entries with one element for each record.
///
/// The document is in memory as a whole. Reading parses it at Open; writing builds it call by call, and Close saves it,
/// if the open flags are exactly kCreateReadWrite. The stream of the file object stays closed.
///
/// Opened stays set after Close: the document can still be walked, written to and saved by another Close.
class SuiteFile : public CFileObject {
 protected:
    explicit SuiteFile(std::u16string_view openLine) : CFileObject(100, openLine, true) {
        document_.emplace(&Shortage());
    }

    /// Lines for the steps of Open, for a class that has them.
    struct OpenFailures {
        std::u16string_view create;
        std::u16string_view load;
    };

    /// The steps of Open, within the class's own operation: only the flags 0 read the file.
    void OpenDocument(const Operation& operation, const char16_t* fileName, const std::uint32_t* openFlags,
                      const OpenFailures& failures = {});

    bool HasDocument() const { return opened_; }
    CXMLDocument& Document() { return *document_; }

    /// The code for a document whose root should have this `id`. Neither the root's name nor its version counts, and a
    /// document that is being written has no `id` here.
    VerifyCode JudgeIdentifier(std::u16string_view identifier) const;

    NodeHandle Entries() const { return entries_; }
    void SetEntries(NodeHandle entries) { entries_ = entries; }

    /// The next of the entries whose name is `name` in whatever case. None behind the last; the one after that is the
    /// first again.
    NodeHandle NextEntry(std::u16string_view name);

    /// Drops all that the document holds, for it to be built anew. There are no entries then.
    void EmptyDocument();

    /// Version and identifier of the root.
    void SetRootAttributes(NodeHandle root, std::u16string_view identifier);

    /// The comment "NO.1" and on, on a line of its own; the numbers go on for the life of the object.
    void AddNumberComment(NodeHandle parent, std::int32_t indent);

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
    std::optional<CXMLDocument> document_;
    std::uint32_t openFlags_ = 0;
    bool opened_ = false;
    bool saved_ = false;
    NodeHandle entries_;
    NodeHandle current_;
    std::u16string identifier_;
    std::int32_t nextNumber_ = 1;
};

}  // namespace orvale
