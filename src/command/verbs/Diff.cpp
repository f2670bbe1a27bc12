#include "command/verbs/Diff.h"

#include <algorithm>
#include <iostream>
#include <map>

#include "command/console/Progress.h"
#include "command/console/Screen.h"
#include "command/files/Fingerprint.h"
#include "command/files/InputScan.h"
#include "command/files/JoinedInputs.h"
#include "command/files/Profiles.h"
#include "command/formats/Kinds.h"
#include "command/json/ProfileJson.h"
#include "command/show/Titles.h"
#include "command/verbs/ResultsJson.h"
#include "host/Differences.h"
#include "platform/Clock.h"
#include "platform/Text.h"

namespace orvale {
namespace {

using Place = std::size_t;  // of a record in its file, from 0
using Pairs = std::vector<std::pair<Place, Place>>;

// Pairs up equal keys, the first with the first and so on; what has no partner is left in both lists, in its order.
template <class Key>
Pairs PairUp(std::vector<std::pair<Key, Place>>& a, std::vector<std::pair<Key, Place>>& b) {
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    Pairs pairs;
    std::vector<std::pair<Key, Place>> onlyA;
    std::vector<std::pair<Key, Place>> onlyB;
    auto i = a.begin();
    auto j = b.begin();
    while (i != a.end() && j != b.end()) {
        if (i->first < j->first)
            onlyA.push_back(std::move(*i++));
        else if (j->first < i->first)
            onlyB.push_back(std::move(*j++));
        else
            pairs.emplace_back((i++)->second, (j++)->second);
    }
    std::move(i, a.end(), std::back_inserter(onlyA));
    std::move(j, b.end(), std::back_inserter(onlyB));
    a = std::move(onlyA);
    b = std::move(onlyB);
    return pairs;
}

// How many of the pairs, in the order of their first places, stand outside the longest row that keeps its order.
std::size_t CountMoved(Pairs pairs) {
    std::sort(pairs.begin(), pairs.end());
    std::vector<Place> ends;  // of the rows of each length, the smallest second place at which one ends
    for (const auto& [first, second] : pairs) {
        const auto end = std::lower_bound(ends.begin(), ends.end(), second);
        if (end == ends.end())
            ends.push_back(second);
        else
            *end = second;
    }
    return pairs.size() - ends.size();
}

// What is told of an input beside its records: once, at the first of its readings.
struct Told {
    bool damaged = false;
};

template <class Record>
std::vector<std::pair<Fingerprint, Place>> FingerprintsOf(const LoadedLibrary& library,
                                                          const std::vector<InputName>& names, const std::string& file,
                                                          Told& told) {
    JoinedInputs inputs(library, names);
    inputs.onDamage = [&](const std::string& name, const std::string& place) {
        TellUser(ErrorLine(name, place, "damaged from here on, which is not compared"));
        told.damaged = true;
    };
    if (names.size() > 1) inputs.onEmpty = [](const std::string& line) { TellUser(line); };
    Progress progress("reading", file);
    std::vector<std::pair<Fingerprint, Place>> fingerprints;
    std::u16string buffer;
    while (const auto* record = inputs.Next<Record>()) {
        fingerprints.emplace_back(FingerprintOf(*record, buffer), fingerprints.size());
        progress.Tick(inputs.Count());
    }
    for (const Note& note : NotInRecords(names, inputs))
        TellUser(ErrorLine(
            "", "",
            "not compared: " + note.what + ": " + std::to_string(note.count) + ", first in " + note.firstPlace));
    if (inputs.PassedOver() != 0) {
        TellUser(ErrorLine(file, "", PassedOverText(inputs.PassedOver())));
        told.damaged = true;
    }
    return fingerprints;
}

// The records that found no equal one, by their places.
template <class Record>
std::map<Place, Record> RecordsAt(const LoadedLibrary& library, const std::vector<InputName>& names,
                                  const std::vector<std::pair<Fingerprint, Place>>& wanted) {
    std::vector<Place> places;
    places.reserve(wanted.size());
    for (const auto& [fingerprint, place] : wanted)
        places.push_back(place);
    std::sort(places.begin(), places.end());
    std::map<Place, Record> records;
    JoinedInputs inputs(library, names);
    inputs.onEmpty = [](const std::string&) {};
    auto next = places.begin();
    while (next != places.end()) {
        const auto* const record = inputs.Next<Record>();
        if (record == nullptr) break;
        if (inputs.Count() - 1 == *next) records.emplace_hint(records.end(), *next++, *record);
    }
    return records;
}

std::u16string Shown(const Fact& fact) {
    return fact.shown.empty() ? fact.value : fact.shown;
}

std::vector<Change> ChangesOf(const std::vector<Fact>& before, const std::vector<Fact>& after) {
    std::vector<Change> changes;
    for (const Difference& difference : DifferencesOf(before, after)) {
        Change change{SubjectOf(difference), std::nullopt, std::nullopt};
        if (difference.before != nullptr) change.before = Shown(*difference.before);
        if (difference.after != nullptr) change.after = Shown(*difference.after);
        changes.push_back(std::move(change));
    }
    return changes;
}

template <class Record>
std::vector<std::pair<std::u16string, Place>> TitlesOf(const std::map<Place, Record>& records) {
    std::vector<std::pair<std::u16string, Place>> titles;
    titles.reserve(records.size());
    for (const auto& [place, record] : records)
        titles.emplace_back(TitleOf(record), place);
    return titles;
}

// A list to pair by place, of what wasn't paired by title.
std::vector<std::pair<Place, Place>> PlacesOf(const std::vector<std::pair<std::u16string, Place>>& titles) {
    std::vector<std::pair<Place, Place>> places;
    places.reserve(titles.size());
    for (const auto& [title, place] : titles)
        places.emplace_back(place, place);
    return places;
}

template <class Record>
void CompareLeft(const std::map<Place, Record>& a, const std::map<Place, Record>& b,
                 std::vector<RecordDifference>& differences) {
    auto titlesA = TitlesOf(a);
    auto titlesB = TitlesOf(b);
    Pairs pairs = PairUp(titlesA, titlesB);
    auto placesA = PlacesOf(titlesA);
    auto placesB = PlacesOf(titlesB);
    const Pairs samePlace = PairUp(placesA, placesB);
    pairs.insert(pairs.end(), samePlace.begin(), samePlace.end());
    for (const auto& [first, second] : pairs) {
        std::vector<Change> changes = ChangesOf(FactsOf(a.at(first)), FactsOf(b.at(second)));
        if (changes.empty()) changes.push_back({"something that has no name", std::nullopt, std::nullopt});
        differences.push_back({{first + 1, second + 1}, TitleOf(a.at(first)), std::move(changes)});
    }
    for (const auto& [place, same] : placesA)
        differences.push_back({{place + 1, std::nullopt}, TitleOf(a.at(place)), {}});
    for (const auto& [place, same] : placesB)
        differences.push_back({{std::nullopt, place + 1}, TitleOf(b.at(place)), {}});
    // By the place in the first file, then those of the second alone.
    const auto rank = [](const RecordDifference& each) {
        return each.numbers[0] ? std::pair(*each.numbers[0], Place()) : std::pair(SIZE_MAX, *each.numbers[1]);
    };
    std::sort(differences.begin(), differences.end(),
              [&](const RecordDifference& x, const RecordDifference& y) { return rank(x) < rank(y); });
}

std::u16string WithoutLineEnds(std::u16string text) {
    text.erase(std::remove_if(text.begin(), text.end(), [](char16_t c) { return c == u'\r' || c == u'\n'; }),
               text.end());
    return text;
}

// A text whose line ends are seen, as "^M" for CR and "^J" for LF.
std::u16string WithLineEndsSeen(const std::u16string& text) {
    std::u16string out;
    for (const char16_t c : text) {
        if (c == u'\r')
            out += u"^M";
        else if (c == u'\n')
            out += u"^J";
        else
            out += c;
    }
    return out;
}

std::u16string ChangeText(const Change& change, const FileDifferences& all) {
    const auto of = [&](const std::u16string& value, std::size_t side, const char16_t* in) {
        return u"\"" + value + u"\" " + in + FromUtf8(all.files[side]);
    };
    if (!change.before && !change.after) return u"differs";
    if (!change.after) return of(*change.before, 0, u"only in ");
    if (!change.before) return of(*change.after, 1, u"only in ");
    // A terminal shows texts alike that differ in their line ends alone.
    const bool lookAlike =
        *change.before != *change.after && WithoutLineEnds(*change.before) == WithoutLineEnds(*change.after);
    const auto shown = [&](const std::u16string& value) { return lookAlike ? WithLineEndsSeen(value) : value; };
    return of(shown(*change.before), 0, u"in ") + u", " + of(shown(*change.after), 1, u"in ");
}

void PrintChanges(Screen& screen, const std::vector<Change>& changes, const FileDifferences& all) {
    for (const Change& change : changes)
        screen.Row(change.what, ChangeText(change, all));
}

void Print(const FileDifferences& all) {
    Screen screen(std::cout, UseColor(ColorMode::kAuto));
    const std::string noun(RecordWord(all.kind));
    if (!all.profile.empty()) {
        screen.Put("the profile", Screen::Style::kTitle);
        screen.EndLine();
        PrintChanges(screen, all.profile, all);
    }
    std::array<std::size_t, 2> only{};
    for (const RecordDifference& each : all.records) {
        const auto& [first, second] = each.numbers;
        screen.Put(noun + " " + std::to_string(first ? *first : *second) + " ", Screen::Style::kLabel);
        screen.Put(each.title, Screen::Style::kTitle);
        if (first && second) {
            if (*first != *second) screen.Put(", in " + all.files[1] + " " + std::to_string(*second));
            screen.EndLine();
            PrintChanges(screen, each.changes, all);
            continue;
        }
        ++only[first ? 0 : 1];
        screen.Put(u", only in " + FromUtf8(all.files[first ? 0 : 1]));
        screen.EndLine();
    }
    const std::size_t differ = all.records.size() - only[0] - only[1];
    std::string sum = std::to_string(all.same) + " the same";
    if (differ != 0) sum += ", " + std::to_string(differ) + " different";
    for (const std::size_t side : {0, 1})
        if (only[side] != 0) sum += ", " + std::to_string(only[side]) + " only in " + all.files[side];
    if (all.moved != 0) sum += "; " + std::to_string(all.moved) + " of the same in another order";
    screen.Put(FromUtf8(std::string(RecordWord(all.kind, true)) + ": " + sum), Screen::Style::kQuiet);
    screen.EndLine();
}

}  // namespace

ExitCode Diff(const LoadedLibrary& library, const DiffOrder& order) {
    const StoppedClock clock(Now());  // a record whose file tells no time gets the same one in both
    RequireOneStandardInput(order.files);
    std::array<std::vector<InputName>, 2> names;
    FileDifferences all{order.files, Kind::kContacts, {}, {}, 0, 0};
    std::array<SharedProfile, 2> profiles;
    std::optional<Kind> kind;
    for (const std::size_t side : {0, 1}) {
        names[side] = ResolveInputs({order.files[side]}, order.format);
        all.files[side] = ShownName(order.files[side]);
        const InputsInfo info = RequireReadable(library, names[side], kind);
        kind = all.kind = info.kind;
        profiles[side] = info.profile;
    }
    for (std::vector<InputName>& side : names)
        TakeGivenProfiles(order.profiles, all.kind, side, nullptr);
    Told told;
    VisitKind(all.kind, [&]<class Record>(std::type_identity<Record>) {
        auto a = FingerprintsOf<Record>(library, names[0], all.files[0], told);
        auto b = FingerprintsOf<Record>(library, names[1], all.files[1], told);
        const Pairs same = PairUp(a, b);
        all.same = same.size();
        all.moved = CountMoved(same);
        CompareLeft(RecordsAt<Record>(library, names[0], a), RecordsAt<Record>(library, names[1], b), all.records);
    });
    all.profile = ChangesOf(FactsOf(profiles[0], false), FactsOf(profiles[1], false));
    if (order.json)
        std::cout << DiffJson(all);
    else
        Print(all);
    const bool differ = !all.profile.empty() || !all.records.empty() || all.moved != 0;
    return differ || told.damaged ? ExitCode::kFailed : ExitCode::kDone;
}

}  // namespace orvale
