#include "platform/HashMap.h"

#include <gtest/gtest.h>

using Map = orvale::HashMap<std::int32_t>;
using Keys = std::vector<std::int32_t>;

namespace {

Keys KeysOf(const Map& map) {
    Keys keys;
    for (const Map::Entry& entry : map)
        keys.push_back(entry.key);
    return keys;
}

Map MapOf(const Keys& keys) {
    Map map;
    for (const std::int32_t key : keys)
        map.Set(key, ~key);
    return map;
}

}  // namespace

TEST(HashMap, IteratesBucketByBucketFromTheNewest) {
    const std::pair<Keys, Keys> cases[] = {
        {{}, {}},
        {{1, 2, 3}, {3, 2, 1}},                             // 16 keys in a row share a bucket,
        {{32, 16, 0, 15, 272}, {272, 15, 0, 16, 32}},       // and so do k and k + 272
        {{-1, INT32_MIN, 16, 0}, {0, 16, INT32_MIN, -1}}};  // as unsigned they fall into the buckets 15 and 8
    for (const auto& [entered, iterated] : cases)
        EXPECT_EQ(KeysOf(MapOf(entered)), iterated);
}

TEST(HashMap, ACopyReversesEachBucket) {
    const Map map = MapOf({1, 2, 3, 16, 17});
    const Map copy = map;
    EXPECT_EQ(KeysOf(copy), (Keys{1, 2, 3, 16, 17}));
    Map assigned = MapOf({99});
    assigned = copy;
    EXPECT_EQ(KeysOf(assigned), (Keys{3, 2, 1, 17, 16}));
    assigned.Clear();
    EXPECT_EQ(KeysOf(assigned), Keys());
}

TEST(HashMap, SettingAKeyAgainKeepsItsPlaceHoweverManyThereAre) {
    for (const std::int32_t size : {3, 63, 64, 65, 500}) {
        Map map;
        for (std::int32_t i = 0; i < 2 * size; ++i)
            map.Set(i % size * 272, i);  // all in one bucket
        EXPECT_EQ(map.size(), static_cast<std::size_t>(size));
        std::int32_t expected = size;
        for (const Map::Entry& entry : map) {
            EXPECT_EQ(entry.key, --expected * 272);
            EXPECT_EQ(entry.value, size + expected);
            EXPECT_EQ(map.Find(entry.key), &entry.value);
        }
        EXPECT_EQ(map.Find(1), nullptr);
    }
}
