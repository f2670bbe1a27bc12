#include "command/html/HtmlDocument.h"

#include "command/html/Page.h"

namespace orvale {
namespace {

class HtmlSink : public RecordSink {
 public:
    HtmlSink(std::ostream& out, Kind kind, const SharedProfile& profile, bool withPasswords) : out_(out) {
        page_.Expect(kind);
        page_.AddProfile(profile, withPasswords);
    }

    void Put(const CContactItem& record) override { page_.Put(record); }
    void Put(const CCalendarItem& record) override { page_.Put(record); }
    void Put(const CSMSItem& record) override { page_.Put(record); }
    void Put(const CEmailItem& record) override { page_.Put(record); }
    void Finish() override { page_.Write(out_); }
    std::vector<Note> Losses() const override {
        if (page_.Halves() == 0) return {};
        return {{"halves of characters that a page can't tell", page_.Halves(), ""}};
    }

 private:
    std::ostream& out_;
    Page page_;
};

}  // namespace

constexpr OwnFormat kHtmlFormat{
    nullptr,
    [](std::ostream& out, Kind kind, const SharedProfile& profile,
       const OutputOptions& options) -> std::unique_ptr<RecordSink> {
        return std::make_unique<HtmlSink>(out, kind, profile, options.withPasswords);
    },
    [](const std::filesystem::path&, std::string_view, const FormatRow*) { return false; },
};

}  // namespace orvale
