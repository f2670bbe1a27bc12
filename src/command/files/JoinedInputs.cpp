#include "command/files/JoinedInputs.h"

#include "command/console/CommandError.h"

namespace orvale {

void JoinedInputs::OpenNext() {
    input_ = std::make_unique<RecordInput>(library_, names_[place_]);
    RequireHeader(*input_);  // it was readable a moment ago
    if (!profile_) profile_ = input_->GetProfile();
}

void JoinedInputs::JudgeEnd() {
    const InputName& name = names_[place_];
    if (name.format->endRule == EndRule::kOneRecord && input_->Count() == 0) {
        const std::string line =
            ErrorLine(name.name, "", "holds no record of the format " + std::string(name.format->name));
        if (!onEmpty) throw CommandError(ExitCode::kFailed, line);
        onEmpty(line);
    }
    passedOver_ += input_->PassedOver();
    if (passedOver_ != 0 && passedOverIn_.empty()) passedOverIn_ = name.name;
    for (Note& note : input_->Notes())
        notes_.push_back({std::move(note.what), note.count, name.name + ", " + note.firstPlace});
    brokenAt_[place_] = input_->BrokenAt();
    if (brokenAt_[place_] && onDamage) onDamage(name.name, PlaceOfDamage(*input_, *brokenAt_[place_]));
}

InputsInfo RequireReadable(const LoadedLibrary& library, const std::vector<InputName>& names,
                           std::optional<Kind> kind) {
    InputsInfo info{};
    for (const InputName& name : names) {
        const RecordInput input(library, name);
        RequireReadable(input);
        const Kind found = input.GetKind();
        if (kind && *kind != found) {
            const std::string holds = "holds " + std::string(RecordWord(found, true));
            FailFile(name.name, "", holds + ", not " + std::string(RecordWord(*kind, true)));
        }
        kind = found;
        if (!info.profile && input.GetProfile()) {
            info.profile = input.GetProfile();
            info.profileOf = name.name;
        }
    }
    info.kind = *kind;
    return info;
}

}  // namespace orvale
