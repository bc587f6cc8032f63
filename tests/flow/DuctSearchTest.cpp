#include "flow/PlainSearch.h"
#include "support/Test.h"

namespace {

enum class By { Loss, Velocity, Caps };
constexpr By kAll[] = {By::Loss, By::Velocity, By::Caps};

struct Sought {
    By Bound;
    double Flow, Height;
    float Loss, Velocity;
    double Roughness = 0.00015;
};

// What a caller sees of a search, to the last bit: width, velocity, loss, equivalent and the working value.
// All but that are 0 where it failed.
using Found = std::array<double, 5>;

template <typename Search>
Found Outcome(Search search) {
    double working = 0;
    try {
        const SizedDuct duct = search(working);
        return {duct.Width, duct.Velocity, duct.Loss, duct.Equivalent, working};
    } catch (const CalcFailure&) {
        return {0, 0, 0, 0, working};
    }
}

int s_pulses = 0; // of the quick searches; each is many passes

Found Quick(const Sought& duct) {
    const SearchPulse pulse = [] { ++s_pulses; };
    return Outcome([&](double& working) {
        const auto& [bound, flow, height, loss, velocity, roughness] = duct;
        return bound == By::Loss ? SizeForLoss(flow, height, loss, roughness, working, pulse)
               : bound == By::Velocity
                   ? SizeForVelocity(flow, height, velocity, roughness, working, pulse)
                   : SizeWithinCaps(flow, height, loss, velocity, roughness, working, pulse);
    });
}

// Leaves the search as it ended in `ended`.
Found Plain(const Sought& duct, std::optional<PlainSearch>& ended) {
    return Outcome([&](double& working) {
        PlainSearch& search = ended.emplace(duct.Flow, duct.Height, duct.Roughness, working);
        return duct.Bound == By::Loss       ? search.ForLoss(duct.Loss)
               : duct.Bound == By::Velocity ? search.ForVelocity(duct.Velocity)
                                            : search.WithinCaps(duct.Loss, duct.Velocity);
    });
}

class DuctSearch : public testing::Test {
  protected:
    DuctSearch() { Settings = SettingsRecord(); }

    double Between(double low, double high) { return std::uniform_real_distribution<>(low, high)(m_random); }
    // Each order of magnitude as often as any other.
    double Among(double low, double high) { return std::exp(Between(std::log(low), std::log(high))); }

    Sought Practical(By bound) {
        return {bound,
                Between(0.02, 6),
                Between(0.03, 1.5),
                static_cast<float>(Between(0.2, 4)),
                static_cast<float>(Between(2, 14)),
                Between(0, 1) < 0.5 ? 0.00015 : 0.002};
    }

    void ExpectTheSame(const Sought& duct) {
        const Found quick = Quick(duct);
        const Found plain = Plain(duct, m_plain);
        m_failed += plain.front() == 0 ? 1 : 0;
        const auto& [bound, flow, height, loss, velocity, roughness] = duct;
        EXPECT_EQ(quick, plain) << std::hexfloat << "bound " << static_cast<int>(bound) << ", " << flow
                                << " by " << height << ", loss " << loss << ", velocity " << velocity
                                << ", roughness " << roughness << ", step " << Settings.RoundOff << ", "
                                << Settings.FluidTemp << " deg C";
    }

    // Two flows side by side, the one with `isAbove` and the other without, out of those around the duct's.
    template <typename IsAbove>
    std::pair<double, double> Border(Sought duct, double around, IsAbove isAbove) {
        double low = duct.Flow * (1 - around);
        double high = duct.Flow * (1 + around);
        for (double middle = 0; middle != (low + high) / 2;) {
            middle = (low + high) / 2;
            duct.Flow = middle;
            (isAbove(Plain(duct, m_plain)) ? high : low) = middle;
        }
        return {low, high};
    }

    std::mt19937 m_random{20261124};
    std::optional<PlainSearch> m_plain;
    int m_failed = 0;
};

constexpr std::int16_t kSizeSteps[] = {1, 5, 10, 25, 30, 50, 100};

// No short cut may show in a single bit.
TEST_F(DuctSearch, GivesTheBitsOfThePlainSearch) {
    s_pulses = 0;
    for (int i = 0; i < 1050; ++i) {
        Settings.RoundOff = kSizeSteps[i % 7];
        ExpectTheSame(Practical(kAll[i % 3]));
    }
    EXPECT_LE(s_pulses, 2) << "they walk every step";
    // Two walks from far to either side take the same passes here, and others than the walk between them.
    Settings.RoundOff = 25;
    ExpectTheSame({By::Caps, 0.00061041476444591194, 0.0062696376763134425, 72.8311996F, 49.0573158F,
                   3.8483580946715379E-8});
    EXPECT_EQ(m_failed, 0);
    for (int i = 0; i < 600; ++i) {
        const std::int16_t odd[] = {-25, 7, 32767, 25};
        Settings.RoundOff = odd[i / 2 % 4];
        Settings.FluidTemp = i % 4 == 0 ? Between(-366, 316) : 26;
        const double roughness = i % 5 == 0 ? 0 : i % 5 == 1 ? Among(0.01, 10) : Among(1E-8, 0.01);
        ExpectTheSame({kAll[i % 3], Among(1E-6, 1E5), Among(1E-3, 100), static_cast<float>(Among(1E-3, 10)),
                       static_cast<float>(Among(0.01, 30)), i % 50 == 0 ? -roughness : roughness});
    }
    EXPECT_GT(m_failed, 80);
    EXPECT_LT(m_failed, 300);
}

// The plain search would take too long here.
TEST_F(DuctSearch, GivesUpAfterHalfAMillionSteps) {
    double up = 100000;
    double down = 6000;
    for (int step = 0; step < 500000; ++step) {
        up += 0.01;
        down -= 0.01;
    }
    EXPECT_EQ(Quick({By::Loss, 0.5, 0.3, 100000, 0}).back(), up);
    EXPECT_EQ(Quick({By::Caps, 0.5, 0.3, 0.5F, 6000}).back(), down);
}

// A loss that is the cap, or becomes it in 32 bits, is accepted; and so is one that is the target.
TEST_F(DuctSearch, TakesALossAtItsBound) {
    for (int i = 0; i < 60; ++i) {
        Settings.RoundOff = kSizeSteps[i % 7];
        Sought capped = Practical(By::Caps);
        Plain(capped, m_plain);
        capped.Loss = m_plain->CappedLoss;
        ExpectTheSame(capped);
        capped.Loss = std::nextafter(capped.Loss, 0.0F);
        ExpectTheSame(capped);

        Sought forLoss = Practical(By::Loss);
        const double working = Plain(forLoss, m_plain).back();
        const auto [low, high] =
            Border(forLoss, 0.01, [&](const Found& found) { return found.back() == working; });
        for (const double flow : {low, high}) {
            forLoss.Flow = flow;
            ExpectTheSame(forLoss);
        }
    }
}

// Within a hair of the middle between two millimetres each bit of the width counts.
TEST_F(DuctSearch, RoundsAWidthAtTheMiddleOfAMillimetre) {
    int middles = 0;
    for (int i = 0; i < 36; ++i) {
        Sought duct = Practical(kAll[i % 3]);
        Plain(duct, m_plain);
        const double middle = std::floor(m_plain->ExactWidth * 40) / 40 + 0.0005; // 25 mm or 26
        duct.Flow *= middle / m_plain->ExactWidth;
        const auto border = Border(duct, 0.02, [&](const Found&) { return m_plain->ExactWidth > middle; });
        duct.Flow = border.first;
        Plain(duct, m_plain);
        middles += std::fabs(m_plain->ExactWidth - middle) < 1E-12 ? 1 : 0;
        for (int neighbour = -12; neighbour <= 12; ++neighbour) {
            duct.Flow = border.first + neighbour * (border.second - border.first);
            ExpectTheSame(duct);
        }
    }
    EXPECT_GT(middles, 18);
}

} // namespace
