#pragma once

#include <ostream>
#include <string>

#include "command/exchange/NoteTally.h"
#include "command/exchange/TextInput.h"
#include "command/formats/FormatTable.h"

namespace orvale {

/// A mailbox file, read as a stream, one message in memory at a time.
class MboxSource : public RecordSource {
 public:
    MboxSource(const std::filesystem::path& path, const std::string& shownName);

    Kind GetKind() const override { return Kind::kEmail; }
    using RecordSource::Next;
    bool Next(CEmailItem& email) override;
    std::vector<Note> Notes() const override { return notes_.List(); }

 private:
    bool Take(LineInput::Line& line);
    bool BeginsMessage(const LineInput::Line& line);
    void Gather(LineInput::Line& line, std::string& message, bool& inHead, std::size_t& headSize);

    LineInput lines_;
    NoteTally notes_;
    LineInput::Line next_;  // that was looked at
    bool hasNext_ = false;
    std::string from_;  // the line that begins the next message; empty at the end
    std::size_t fromLine_ = 0;
};

/// Writes a mailbox file.
class MboxSink : public RecordSink {
 public:
    explicit MboxSink(std::ostream& out) : out_(out) {}

    using RecordSink::Put;
    void Put(const CEmailItem& email) override;
    void Finish() override {}
    std::vector<Note> Losses() const override;

 private:
    void PutQuoted(std::string_view message);

    std::ostream& out_;
    std::u16string flat_;
    std::size_t count_ = 0;
    std::size_t replaced_ = 0;
};

extern const OwnFormat kMboxFormat;

}  // namespace orvale
