#include "test_drawing.h"

#include <zucomn/replace_reactor.h>
#include <zucomn/route.h>

namespace {

class Recorder : public CReplaceReactor {
public:
    explicit Recorder(std::wstring& log, wchar_t name) : log_(log), name_(name) {}
    void erase(AcDbObjectId id) override { note(L'e', id); }
    void terminated(AcDbObjectId id, AcArray<AcDbObjectId> newIds) override {
        note(L't', id);
        last = newIds;
    }
    AcDbObjectIdArray last;

private:
    void note(wchar_t what, AcDbObjectId id) {
        log_ += std::wstring{name_, what} + std::to_wstring(id.handle().value()) + L" ";
    }
    std::wstring& log_;
    wchar_t name_;
};

class Replace : public testing::Test {
protected:
    static std::wstring number(AcDbObjectId id) { return std::to_wstring(id.handle().value()); }
    AcDbObjectIdArray members() const {
        AcDbObjectIdArray found;
        RootComn_GetGroupMember(group, found);
        return found;
    }

    TestDrawing drawing;
    AcDbObjectId block = drawing.block(L"RT-1", {});
    AcDbObjectId a = drawing.element(block, {});
    AcDbObjectId b = drawing.element(block, {});
    AcDbObjectId c = drawing.element(block, {});
    AcDbObjectId x = drawing.element(block, {});
    AcDbObjectId y = drawing.element(block, {});
    AcDbObjectId group;
    std::wstring log;

    void SetUp() override { RootComn_CreateNewGroup(L"*", TestDrawing::ids({a, b, c}), group, false); }
};

TEST_F(Replace, NewElementsTakeThePlaceOfTheOld) {
    Recorder first(log, L'1');
    Recorder second(log, L'2');
    RuleComn_addReplaceReactor(&first);
    RuleComn_addReplaceReactor(&second);
    EXPECT_EQ(RuleComn_rootReplace(TestDrawing::ids({b, c}), TestDrawing::ids({x, y})), 0);
    EXPECT_EQ(log, L"1e" + number(b) + L" 2e" + number(b) + L" 1t" + number(b) + L" 2t" + number(b) + L" 1t" +
                       number(c) + L" 2t" + number(c) + L" ");
    EXPECT_EQ(first.last, TestDrawing::ids({x, y}));
    EXPECT_TRUE(b.isErased());
    EXPECT_TRUE(c.isErased());
    EXPECT_EQ(members(), TestDrawing::ids({a, x, y}));
}

TEST_F(Replace, MergingKeepsTheRemainingElement) {
    Recorder recorder(log, L'1');
    RuleComn_addReplaceReactor(&recorder);
    EXPECT_EQ(RuleComn_rootMerge(TestDrawing::ids({a, c}), c), 0);
    EXPECT_EQ(log, L"1t" + number(a) + L" ");
    EXPECT_FALSE(c.isErased());
    EXPECT_EQ(members().length(), 2);
    EXPECT_TRUE(members().contains(c));
}

TEST_F(Replace, MergingLeavesOneRouteGroupOfAKind) {
    for (const AcDbObjectId line : {a, b, c, x})
        TestDrawing::setLink(line, L"1|");
    AcDbObjectId other;
    RootComn_CreateNewGroup(L"*", TestDrawing::ids({x, y}), other, false);
    {
        const AcDbObjectPointer<AcDbObject> busy(other, AcDb::kForRead);
        EXPECT_EQ(RuleComn_rootMerge(TestDrawing::ids({a}), x), -1);
        EXPECT_FALSE(a.isErased());
    }
    EXPECT_EQ(RuleComn_rootMerge(TestDrawing::ids({a}), x), 0);
    EXPECT_EQ(members(), TestDrawing::ids({x, b, c}));
    int size = 0;
    EXPECT_EQ(RootComn_GetGroupSize(other, &size), 0);
    EXPECT_EQ(size, 1) << "the lowest-numbered group keeps the line";
}

TEST_F(Replace, AnElementThatStaysIsNotToldOf) {
    Recorder recorder(log, L'1');
    RuleComn_addReplaceReactor(&recorder);
    EXPECT_EQ(RuleComn_rootReplace(TestDrawing::ids({a, b}), TestDrawing::ids({a, x})), 0);
    EXPECT_EQ(log, L"1t" + number(b) + L" ");
    EXPECT_FALSE(a.isErased());
    EXPECT_EQ(members(), TestDrawing::ids({a, x, c}));
}

TEST_F(Replace, NothingHappensWhenAnElementCanNotBeChanged) {
    Recorder recorder(log, L'1');
    RuleComn_addReplaceReactor(&recorder);
    const AcDbObjectPointer<AcDbEntity> busy(y, AcDb::kForRead);
    EXPECT_EQ(RuleComn_rootReplace(TestDrawing::ids({a}), TestDrawing::ids({x, y})), -1);
    EXPECT_EQ(RuleComn_rootReplace(AcDbObjectIdArray(), TestDrawing::ids({x})), -1);
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(a.isErased());
    EXPECT_EQ(members(), TestDrawing::ids({a, b, c}));
}

TEST_F(Replace, ReactorsAreToldAsOftenAsRegistered) {
    Recorder recorder(log, L'1');
    Recorder never(log, L'2');
    RuleComn_addReplaceReactor(&recorder);
    RuleComn_addReplaceReactor(&recorder);
    RuleComn_removeReplaceReactor(&never);
    RuleComn_removeReplaceReactor(&recorder);
    RuleComn_rootMerge(TestDrawing::ids({a}), b);
    EXPECT_EQ(log, L"1t" + number(a) + L" ");
    RuleComn_removeReplaceReactor(&recorder);
    log.clear();
    RuleComn_rootMerge(TestDrawing::ids({b}), c);
    EXPECT_TRUE(log.empty());
}

TEST_F(Replace, AReactorMayRemoveReactorsWhenNotified) {
    class Leaving : public CReplaceReactor {
    public:
        void terminated(AcDbObjectId, AcArray<AcDbObjectId>) override {
            ++calls;
            RuleComn_removeReplaceReactor(this);
            RuleComn_removeReplaceReactor(other);
        }
        int calls = 0;
        CReplaceReactor* other = nullptr;
    };
    Recorder recorder(log, L'1');
    Leaving leaving;
    leaving.other = &recorder;
    RuleComn_addReplaceReactor(&leaving);
    RuleComn_addReplaceReactor(&recorder);
    RuleComn_rootReplace(TestDrawing::ids({a, b}), TestDrawing::ids({x}));
    EXPECT_EQ(leaving.calls, 1);
    EXPECT_EQ(log.find(L't'), std::wstring::npos);
    EXPECT_EQ(CReplaceReactor::cast(&leaving), &leaving);
    EXPECT_EQ(leaving.isA(), acrxFindAcRxClass(L"CReplaceReactor"));
}

} // namespace
