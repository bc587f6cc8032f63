#include "project/model/History.h"
#include "platform/files/FileFailure.h"
#include "project/model/DuctBits.h"
#include "project/model/ProjectModel.h"
#include "support/Test.h"

namespace {

void Fill(int ducts, double flow) {
    DuctCount = static_cast<std::int16_t>(ducts);
    FitDucts();
    for (int number = 1; number <= ducts; ++number) {
        Duct(number) = {.Colour = number % 3 == 0 ? kConnectionColour : kRigidColour,
                        .StartX = (number % 41) / 40.0,
                        .EndY = (number % 31) / 30.0,
                        .Flow = number % 3 == 0 ? 0 : number * flow};
    }
}

// Any row of actions, undone and redone to and fro, comes by the very states that it came by before.
TEST(History, EveryStateComesBackBitForBit) {
    std::mt19937 random(1);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto changeAValue = [&] {
        const auto duct = static_cast<std::int16_t>(below(DuctCount + 1));
        Duct(duct).Flow = below(3) / 3.0;
        FollowOn(duct, SheetBox::Flow);
    };
    const auto load = [&] { // with an element 0 of its own
        Fill(below(70), 1.1);
        Ducts[0].Spare = -0.0F;
        ProjectName = std::to_string(below(3));
        Solved = kFlagClear;
    };
    const auto solve = [] {
        for (int number = 1; number <= DuctCount; ++number) {
            Duct(number).Velocity = number / 7.0;
            Duct(number).EquivRound = 375;
        }
        Solved = kFlagSet;
    };
    const auto removeTheLast = [] {
        DuctCount = static_cast<std::int16_t>(std::max(DuctCount - 1, 0));
        FitDucts();
    };
    const auto draw = [&] { AddDuct({below(40) * 1.0, below(30) * 1.0}, {below(40) * 1.0, 1}, {40, 30}); };
    const std::function<void()> actions[] = {draw, changeAValue, removeTheLast, ClearProject,
                                             load, solve,        [] {}};
    StartProject();
    StartHistory();
    std::vector<ProjectState> states{NotedState()};
    std::size_t at = 0;
    for (int turn = 0; turn < 3000; ++turn) {
        if (const int way = below(3); way == 0) {
            const auto step = UndoStep();
            EXPECT_EQ(step.has_value(), at > 0);
            EXPECT_TRUE(!step || step->Duct == 0 || IsDuct(step->Duct));
            at -= at > 0 ? 1U : 0U;
        } else if (way == 1) {
            EXPECT_EQ(RedoStep().has_value(), at + 1 < states.size());
            at += at + 1 < states.size() ? 1U : 0U;
        } else {
            actions[below(7)]();
            const bool changed = NoteStep(false);
            EXPECT_EQ(changed, NotedState() != states[at]);
            if (changed) {
                states.resize(++at);
                states.push_back(NotedState());
            }
        }
        ASSERT_TRUE(NotedState() == states[at]) << "turn " << turn;
    }
    EXPECT_GT(states.size(), 50U);
}

// A thousand steps of the largest project stay within their bounds, and so does what can't be packed.
TEST(History, TheLargestProject) {
    std::mt19937_64 random(1);
    const auto changeAllFrom = [](int step) {
        Duct(1 + step % 7).Flow = step;
        FollowOn(static_cast<std::int16_t>(1 + step % 7), SheetBox::Flow);
    };
    const auto clearOrLoad = [](int step) { Fill(step % 2 * kMostDucts, 1 / 9.0); };
    const auto scramble = [&](int) {
        for (DuctRecord& duct : Ducts) {
            DuctBits bits;
            std::generate(bits.begin(), bits.end(), [&] { return random(); });
            duct = DuctOf(bits);
        }
    };
    const std::pair<bool, std::function<void(int)>> rows[] = {
        {true, changeAllFrom}, {true, clearOrLoad}, {false, scramble}};
    constexpr int kSteps = 13;
    for (const auto& [packs, act] : rows) {
        StartProject();
        Fill(kMostDucts, 1 / 9.0);
        StartHistory();
        const ProjectState start = NotedState();
        EXPECT_TRUE(ReadKept(KeptContent(start, "")).State == start);
        ProjectState beyond = start;
        beyond.Elements.emplace_back();
        EXPECT_THROW(ReadKept(KeptContent(beyond, "")), ContentFailure);
        std::size_t bytesOfFirst = 0;
        for (int step = 0; step < kSteps; ++step) {
            act(step);
            ASSERT_TRUE(NoteStep(false));
            bytesOfFirst = step == 5 ? HistoryBytes() : bytesOfFirst;
        }
        EXPECT_LT(HistoryBytes(), 64U << 20);
        EXPECT_EQ(bytesOfFirst + (HistoryBytes() - bytesOfFirst) * 1000 / (kSteps - 6) < 64U << 20, packs);
        int undone = 0;
        while (UndoStep()) {
            ++undone;
        }
        EXPECT_TRUE(packs ? undone == kSteps : undone > 5 && undone < kSteps) << undone;
        EXPECT_EQ(NotedState() == start, packs);
    }
    StartProject();
    StartHistory();
}

} // namespace
