#include "editor_drawing.h"

#include <cmath>
#include <functional>
#include <random>
#include <set>

namespace {

constexpr int kEntities = 60;
const wchar_t* const kLayers[] = {L"PIPES-1", L"PIPES-2", L"DUCTS"};

/// Entities with random properties, and filters of which the model knows the answer.
class Filters : public EditorDrawing {
protected:
    struct Entity {
        bool isLine;
        std::wstring layer;
        int color;
        double x;
        double radius; ///< Or the length of a line.
    };
    using Predicate = std::function<bool(const Entity&)>;

    Filters() {
        for (int i = 0; i < kEntities; ++i) {
            Entity entity{below(2) == 0, kLayers[below(3)], 1 + below(4), static_cast<double>(below(6)),
                          1.0 + below(3)};
            if (entity.isLine)
                makeLine(entity.x, 0, entity.x, entity.radius, entity.layer.c_str(), entity.color);
            else
                makeCircle(entity.x, 0, entity.radius, entity.layer.c_str());
            if (!entity.isLine)
                entity.color = 256;
            entities_.push_back(entity);
        }
        int place = 0;
        ads_name name;
        for (int code = acdbEntNext(nullptr, name); code == RTNORM; code = acdbEntNext(name, name))
            places_[{name[0], name[1]}] = place++;
    }

    int below(int end) { return std::uniform_int_distribution<>(0, end - 1)(random_); }

    static void append(Chain& chain, resbuf* items) {
        if (chain.get() == nullptr)
            return chain.reset(items);
        resbuf* last = chain.get();
        while (last->rbnext != nullptr)
            last = last->rbnext;
        last->rbnext = items;
    }

    /// Appends one random item to the filter and returns what it asks.
    Predicate appendItem(Chain& chain) {
        switch (below(5)) {
        case 0: {
            const bool line = below(2) == 0;
            append(chain, acutBuildList(RTDXF0, line ? L"LINE" : L"circle,arc", RTNONE));
            return [line](const Entity& e) { return e.isLine == line; };
        }
        case 1: {
            static const struct {
                const wchar_t* pattern;
                bool (*matches)(const std::wstring& layer);
            } kPatterns[] = {
                {L"pipes*", [](const std::wstring& layer) { return layer.starts_with(L"PIPES"); }},
                {L"*-#", [](const std::wstring& layer) { return layer != L"DUCTS"; }},
                {L"~*-1", [](const std::wstring& layer) { return layer != L"PIPES-1"; }},
                {L"DUCTS,PIPES-[2-9]", [](const std::wstring& layer) { return layer != L"PIPES-1"; }},
                {L"?????", [](const std::wstring& layer) { return layer == L"DUCTS"; }},
            };
            const auto& chosen = kPatterns[below(5)];
            append(chain, acutBuildList(8, chosen.pattern, RTNONE));
            return [&chosen](const Entity& e) { return chosen.matches(e.layer); };
        }
        case 2: {
            const int color = 1 + below(4);
            static constexpr const wchar_t* kRelations[] = {L"=",  L"!=", L"<",  L"<=", L">",
                                                            L">=", L"&",  L"&=", L"*"};
            const int relation = below(9);
            append(chain, acutBuildList(-4, kRelations[relation], 62, color, RTNONE));
            return [=](const Entity& e) {
                const bool answers[] = {e.color == color,
                                        e.color != color,
                                        e.color<color, e.color <= color, e.color> color,
                                        e.color >= color,
                                        (e.color & color) != 0,
                                        (e.color & color) == color,
                                        true};
                return answers[relation];
            };
        }
        case 3: {
            const double radius = 1.0 + below(3);
            append(chain, acutBuildList(-4, L">=", 40, radius, RTNONE));
            return [radius](const Entity& e) { return !e.isLine && e.radius >= radius; };
        }
        default: {
            const double x = below(6);
            const ads_point point{x, 0, 0};
            const bool less = below(2) == 0;
            append(chain, acutBuildList(-4, less ? L"<,*,*" : L">=,=", 10, point, RTNONE));
            return [=](const Entity& e) { return less ? e.x < x : e.x >= x; };
        }
        }
    }

    Predicate appendTree(Chain& chain, int depth) {
        if (depth == 0 || below(3) == 0)
            return appendItem(chain);
        static const wchar_t* const kBegin[] = {L"<AND", L"<or", L"<XOR", L"<NOT"};
        static const wchar_t* const kEnd[] = {L"AND>", L"OR>", L"xor>", L"NOT>"};
        const int kind = below(4);
        append(chain, acutBuildList(-4, kBegin[kind], RTNONE));
        std::vector<Predicate> inner;
        const int count = kind == 3 ? 1 : kind == 2 ? 2 : 1 + below(3);
        inner.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            inner.push_back(appendTree(chain, depth - 1));
        append(chain, acutBuildList(-4, kEnd[kind], RTNONE));
        return [=](const Entity& e) {
            const auto passed =
                std::count_if(inner.begin(), inner.end(), [&](const Predicate& p) { return p(e); });
            const bool answers[] = {passed == count, passed > 0, passed == 1, passed == 0};
            return answers[kind];
        };
    }

    std::set<int> select(const wchar_t* mode, const void* a, const void* b, const resbuf* filter) {
        std::set<int> found;
        ads_name set;
        if (acedSSGet(mode, a, b, filter, set) != RTNORM)
            return found;
        Adesk::Int32 length = 0;
        acedSSLength(set, &length);
        for (Adesk::Int32 i = 0; i < length; ++i) {
            ads_name name;
            EXPECT_EQ(acedSSName(set, i, name), RTNORM);
            EXPECT_TRUE(found.insert(places_.at({name[0], name[1]})).second) << "each entity once";
        }
        acedSSFree(set);
        return found;
    }

    std::vector<Entity> entities_;
    std::map<std::pair<std::int64_t, std::int64_t>, int> places_;
    std::mt19937 random_{19}; // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
};

TEST_F(Filters, AdmitWhatTheirGroupsAndRelationsSay) {
    int selected = 0;
    for (int round = 0; round < 400; ++round) {
        Chain chain;
        std::vector<Predicate> all;
        for (int i = 0; i <= below(2); ++i)
            all.push_back(appendTree(chain, 3));
        std::set<int> expected;
        for (int i = 0; i < kEntities; ++i)
            if (std::all_of(all.begin(), all.end(),
                            [&](const Predicate& p) { return p(entities_[static_cast<std::size_t>(i)]); }))
                expected.insert(i);
        ASSERT_EQ(select(L"X", nullptr, nullptr, chain.get()), expected) << round;
        selected += static_cast<int>(expected.size());
    }
    EXPECT_GT(selected, 1000);
}

TEST_F(Filters, WindowsHoldWhatIsWithinAndCrossingsWhatTheyTouch) {
    for (int round = 0; round < 200; ++round) {
        const double low[] = {below(60) / 10.0 - 1.05, below(50) / 10.0 - 3.05};
        const double high[] = {low[0] + 0.3 + below(40) / 10.0, low[1] + 0.3 + below(40) / 10.0};
        std::set<int> within;
        std::set<int> touched;
        std::set<int> close; // within the height of the chords that stand for circles
        for (int i = 0; i < kEntities; ++i) {
            const Entity& e = entities_[static_cast<std::size_t>(i)];
            const double left = e.isLine ? e.x : e.x - e.radius;
            const double right = e.isLine ? e.x : e.x + e.radius;
            const double bottom = e.isLine ? 0.0 : -e.radius;
            if (left >= low[0] && right <= high[0] && bottom >= low[1] && e.radius <= high[1])
                within.insert(i);
            const double nearest =
                std::hypot(std::clamp(e.x, low[0], high[0]) - e.x, std::clamp(0.0, low[1], high[1]));
            const double farthest = std::hypot(std::max(std::abs(low[0] - e.x), std::abs(high[0] - e.x)),
                                               std::max(std::abs(low[1]), std::abs(high[1])));
            const bool isTouched =
                e.isLine ? e.x >= low[0] && e.x <= high[0] && high[1] >= 0.0 && low[1] <= e.radius
                         : nearest <= e.radius && farthest >= e.radius;
            if (isTouched)
                touched.insert(i);
            if (!e.isLine && std::min(std::abs(nearest - e.radius), std::abs(farthest - e.radius)) < 0.002)
                close.insert(i);
        }
        const ads_point a{low[0], high[1], 0};
        const ads_point b{high[0], low[1], 0};
        ASSERT_EQ(select(L"W", a, b, nullptr), within) << round;
        std::set<int> crossed = select(L"C", a, b, nullptr);
        for (const int entity : close) {
            crossed.erase(entity);
            touched.erase(entity);
        }
        ASSERT_EQ(crossed, touched) << round;
    }
}

TEST_F(Filters, ArcsOfAWholeTurnAreCircles) {
    const ads_point centre{100, 0, 0};
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"ARC", 10, centre, 40, 5.0, 50, 0.0, 51, 360.0, RTNONE))));
    places_.clear();
    ads_name last;
    ASSERT_EQ(acdbEntLast(last), RTNORM);
    places_[{last[0], last[1]}] = 0;
    const ads_point a{94, -1, 0};
    const ads_point b{96, 1, 0};
    EXPECT_EQ(select(L"C", a, b, nullptr), std::set<int>{0}) << "on the side away from the start";
}

TEST_F(Filters, ThatAreNotBalancedSelectNothing) {
    const ads_point origin{0, 0, 0};
    for (resbuf* const items :
         {acutBuildList(-4, L"<AND", 62, 1, -4, L"OR>", RTNONE),
          acutBuildList(-4, L"<AND", -4, L"<OR", 62, 1, -4, L"AND>", -4, L"OR>", RTNONE),
          acutBuildList(-4, L"=", -4, L"=", 62, 1, RTNONE),
          acutBuildList(-4, L"=", -4, L"<AND", 62, 1, -4, L"AND>", RTNONE),
          acutBuildList(-4, L"<AND", 62, 1, -4, L"=", -4, L"AND>", RTNONE),
          acutBuildList(-4, L">,?", 10, origin, RTNONE), acutBuildList(-4, L"", 62, 1, RTNONE),
          acutBuildList(-4, L"<NAND", 62, 1, -4, L"NAND>", RTNONE)}) {
        const Chain chain(items);
        ads_name set{1, 1};
        EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, items, set), RTERROR);
    }
}

} // namespace
