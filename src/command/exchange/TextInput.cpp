#include "command/exchange/TextInput.h"

#include <algorithm>

#include "command/console/CommandError.h"
#include "platform/Text.h"

namespace orvale {

LineInput::LineInput(const std::filesystem::path& path, const std::string& shownName, std::size_t longest, Hold hold)
    : longest_(longest) {
    const std::u16string name = FromUtf8(path.native());
    std::error_code error = std::make_error_code(std::errc::illegal_byte_sequence);
    std::uint32_t flags = CFile::kModeRead;
    if (hold == Hold::kAlone) flags |= CFile::kShareExclusive;
    if (ToUtf8(name) != path.native() || file_.Open(name.c_str(), flags, &error) == 0)
        FailFile(shownName, "", SystemReason(error));
    if (file_.Ahead().starts_with("\xEF\xBB\xBF")) file_.Skip(3);
}

bool LineInput::Next(Line& line) {
    line.text.clear();
    line.ended = line.cut = false;
    line.start = file_.GetPosition();
    while (!line.ended) {
        const std::string_view ahead = file_.Ahead();
        if (ahead.empty()) break;
        const std::size_t feed = ahead.find('\n');
        line.ended = feed != std::string_view::npos;
        const std::string_view piece = ahead.substr(0, line.ended ? feed : ahead.size());
        const std::size_t room = longest_ - line.text.size();
        line.text += piece.substr(0, room);
        line.cut = line.cut || piece.size() > room;
        file_.Skip(piece.size() + line.ended);
    }
    line.end = file_.GetPosition();
    if (line.end == line.start) return false;
    if (line.ended && !line.cut && line.text.ends_with('\r')) line.text.pop_back();
    line.number = ++number_;
    return true;
}

int LineInput::Peek() {
    const std::string_view ahead = file_.Ahead();
    return ahead.empty() ? -1 : static_cast<unsigned char>(ahead.front());
}

}  // namespace orvale
