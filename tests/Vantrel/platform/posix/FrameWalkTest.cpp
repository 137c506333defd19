#include "Vantrel/platform/posix/FrameWalk.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace vantrel::posix {
namespace {

class FrameWalkTest : public testing::Test {
protected:
    // Saves a frame pointer and a return address at a word of the stack.
    void save(std::size_t at, std::uintptr_t next, std::uintptr_t returnAddress) {
        m_words[at] = next;
        m_words[at + 1] = returnAddress;
    }
    [[nodiscard]] std::uintptr_t address(std::size_t word) const {
        return reinterpret_cast<std::uintptr_t>(&m_words[word]);
    }
    [[nodiscard]] std::vector<std::uintptr_t> walked(std::uintptr_t framePointer,
                                                     std::size_t room = 8) const {
        std::vector<void*> frames(room);
        frames.resize(
            FrameWalk::walk(0xc0de, framePointer, {address(0), address(m_words.size() - 1)}, frames));
        std::vector<std::uintptr_t> result;
        for (void* const frame : frames) {
            result.push_back(reinterpret_cast<std::uintptr_t>(frame));
        }
        return result;
    }

private:
    std::array<std::uintptr_t, 16> m_words{};
};

TEST_F(FrameWalkTest, FollowsFramePointersUpTheStack) {
    save(2, address(6), 101);
    save(6, address(10), 102);
    save(10, 0, 103);
    EXPECT_EQ(walked(address(2)), (std::vector<std::uintptr_t>{0xc0de, 101, 102, 103}));
    EXPECT_EQ(walked(address(2), 2), (std::vector<std::uintptr_t>{0xc0de, 101}));
    EXPECT_TRUE(walked(address(2), 0).empty());
}

TEST_F(FrameWalkTest, EndsWhereTheStackIsDamaged) {
    const std::vector<std::uintptr_t> one{0xc0de, 101};
    for (const std::uintptr_t next : {address(2), address(1), address(6) + 1, address(14), address(0) - 16,
                                      std::uintptr_t{0}, ~std::uintptr_t{7}}) {
        save(2, next, 101);
        EXPECT_EQ(walked(address(2)), one) << next;
    }
    save(2, address(6), 101);
    save(6, address(10), 0);
    EXPECT_EQ(walked(address(2)), one);
    EXPECT_EQ(walked(3), std::vector<std::uintptr_t>{0xc0de});
}

} // namespace
} // namespace vantrel::posix
