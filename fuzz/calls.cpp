#include <array>
#include <cstdint>
#include <functional>
#include <iterator>

#include "platform/Text.h"
#include "support/RecordFiles.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

// Takes choices off the front of an input.
class Choices {
 public:
    explicit Choices(std::string_view bytes) : bytes_(bytes) {}
    unsigned Next() {
        if (bytes_.empty()) return 0;
        const auto byte = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte;
    }
    std::string_view Take(std::size_t count) {
        const std::string_view taken = bytes_.substr(0, count);
        bytes_.remove_prefix(taken.size());
        return taken;
    }
    std::string_view Rest() const { return bytes_; }

 private:
    std::string_view bytes_;
};

constexpr std::array kFlags{
    std::uint32_t{CFile::kModeRead},
    std::uint32_t{CFile::kModeWrite},
    std::uint32_t{CFile::kModeReadWrite},
    std::uint32_t{CFile::kCreateReadWrite},
    CFile::kCreateReadWrite | CFile::kModeNoTruncate,
    CFile::kModeReadWrite | CFile::kShareExclusive,
    std::uint32_t{0xFFFFFFFF},
    std::uint32_t{3},
};

// The stream's own slots raise where their text says so; nothing else may.
template <class Call>
void OnStream(Call call) {
    try {
        call();
    } catch (const std::exception&) {
    }
}

template <class Record>
void Play(FileFormat format, Choices& choices, std::string_view content) {
    const Scratch file("input", content);
    const std::u16string path = FromUtf8(file.Path());
    Object object(format);
    Record own;
    void* record = nullptr;
    const void* profile = nullptr;
    char buffer[64] = {};
    const std::function<void(unsigned more)> calls[] = {
        [&](unsigned more) {
            record = nullptr;  // the open file is closed first
            object->Open(path.c_str(), &kFlags[more % kFlags.size()]);
        },
        [&](unsigned) { object->ReadFileHeader(); },
        [&](unsigned) { object->Verify(); },
        [&](unsigned) { Must(object->Read(&record) == 0 || record != nullptr, "a record that was read is there"); },
        [&](unsigned) { object->WriteFileHeader(); },
        [&](unsigned) { object->Write(&own); },
        [&](unsigned) { own = record != nullptr ? *static_cast<const Record*>(record) : own; },
        [&](unsigned) {
            record = nullptr;
            object->Close();
        },
        [&](unsigned) { object->GetProfile(&profile); },
        [&](unsigned more) {
            const bool columns = more % 2 != 0 && ShapeOfFormat(format) == ProfileShape::kColumns;
            object->SetProfile(columns ? AddressOf(Columns()) : profile);
        },
        [&](unsigned) {
            object->SetProfile(nullptr);
            object->GetProfile(nullptr);
            Must(object->Read(nullptr) == 0 && object->Write(nullptr) == 0, "a null address is a failure");
            Must(object->Open(nullptr, &kFlags[0]) == 0, "a null name is a failure");
            Must(object->Open(path.c_str(), nullptr) == 0, "null flags are a failure");
        },
        [&](unsigned more) { OnStream([&] { object->Seek(static_cast<std::int64_t>(more) - 4, CFile::kCurrent); }); },
        [&](unsigned more) { OnStream([&] { object->Seek(0, more % 2 != 0 ? CFile::kBegin : CFile::kEnd); }); },
        [&](unsigned more) { OnStream([&] { object->SetLength(more * 8); }); },
        [&](unsigned more) { OnStream([&] { static_cast<CFile&>(*object).Read(buffer, more); }); },
        [&](unsigned more) { OnStream([&] { static_cast<CFile&>(*object).Write(buffer, more); }); },
    };
    static_assert(std::size(calls) == 16, "half a byte names a call, the other half is its own");
    while (!choices.Rest().empty()) {
        const unsigned choice = choices.Next();
        calls[choice % 16](choice / 16);
    }
}

}  // namespace

// Calls in any order, over a file of any content: the first byte is the format, the second the number of calls, then
// the calls, then the file. They do no harm.
ORVALE_FUZZ_TARGET("calls") {
    Choices choices(input);
    const auto formats = AllFormats();
    const FormatInfo& format = formats[choices.Next() % formats.size()];
    Choices calls(choices.Take(choices.Next()));
    VisitKind(format.kind,
              [&]<class Record>(std::type_identity<Record>) { Play<Record>(format.format, calls, choices.Rest()); });
}
