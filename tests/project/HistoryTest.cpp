#include "project/model/History.h"
#include "project/model/DuctBits.h"
#include "project/model/ProjectModel.h"
#include "support/Test.h"

namespace {

void Fill(int ducts, const std::function<double(int)>& flow) {
    DuctCount = static_cast<std::int16_t>(ducts);
    FitDucts();
    for (int number = 1; number <= ducts; ++number) {
        Duct(number) = {.Colour = number % 3 == 0 ? kConnectionColour : kRigidColour,
                        .StartX = (number % 41) / 40.0,
                        .EndY = (number % 31) / 30.0,
                        .Flow = number % 3 == 0 ? 0 : flow(number)};
    }
}

// Any row of actions, undone and redone to and fro, comes by the very states that it came by before.
TEST(History, EveryStateComesBackBitForBit) {
    std::mt19937 random(1);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const std::function<void()> actions[] = {
        [&] {
            AddDuct({below(40) * 1.0, below(30) * 1.0}, {below(40) * 1.0, 1}, {40, 30});
        },
        [&] { // a value, and what follows it
            const auto duct = static_cast<std::int16_t>(below(DuctCount + 1));
            Duct(duct).Flow = below(3) / 3.0;
            FollowOn(duct, SheetBox::Flow);
        },
        [&] { // the last one removed
            DuctCount = static_cast<std::int16_t>(std::max(DuctCount - 1, 0));
            FitDucts();
        },
        ClearProject,
        [&] { // a load, with an element 0 of its own
            Fill(below(70), [&](int number) { return number * 1.1; });
            Ducts[0].Spare = -0.0F;
            ProjectName = std::to_string(below(3));
            Solved = kFlagClear;
        },
        [&] { // a solution
            for (int number = 1; number <= DuctCount; ++number) {
                Duct(number).Velocity = number / 7.0;
                Duct(number).EquivRound = 375;
            }
            Solved = kFlagSet;
        },
        [] {}};
    StartProject();
    StartHistory();
    std::vector<ProjectState> states{NotedState()};
    std::size_t at = 0;
    for (int turn = 0; turn < 3000; ++turn) {
        if (const int way = below(3); way == 0) {
            EXPECT_EQ(UndoStep().has_value(), at > 0);
            at -= at > 0 ? 1U : 0U;
        } else if (way == 1) {
            EXPECT_EQ(RedoStep().has_value(), at + 1 < states.size());
            at += at + 1 < states.size() ? 1U : 0U;
        } else {
            actions[static_cast<std::size_t>(below(7))]();
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
    const auto fill = [] { Fill(kMostDucts, [](int number) { return number / 9.0; }); };
    const std::pair<bool, std::function<void(int)>> rows[] = {
        {true,
         [](int step) {
             Duct(1 + step % 7).Flow = step;
             FollowOn(static_cast<std::int16_t>(1 + step % 7), SheetBox::Flow);
         }},
        {true, [fill](int step) { step % 2 == 1 ? fill() : ClearProject(); }},
        {false, [&](int) {
             for (DuctRecord& duct : Ducts) {
                 DuctBits bits;
                 std::generate(bits.begin(), bits.end(), [&] { return random(); });
                 duct = DuctOf(bits);
             }
         }}};
    constexpr int kSteps = 13;
    for (const auto& [packs, act] : rows) {
        StartProject();
        fill();
        StartHistory();
        const ProjectState start = NotedState();
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
