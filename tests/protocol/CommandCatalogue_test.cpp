#include "protocol/CommandCatalogue.h"

#include <gtest/gtest.h>

#include <set>

using namespace orbelan;

namespace {

// Replies to requests below 100 carry the request's code plus 100; replies to
// requests of 120 and above carry the code plus 1.
std::int16_t replyCodeOf(std::int16_t request)
{
    return static_cast<std::int16_t>(request < 100 ? request + 100 : request + 1);
}

TEST(CommandCatalogue, CodesAreUniqueAndInTheirDirectionsRanges)
{
    std::set<std::int16_t> seen;
    for (const CommandInfo& info : commandCatalogue()) {
        const std::int16_t code = codeNumber(info.code);
        EXPECT_TRUE(seen.insert(code).second) << "code " << code << " twice";
        if (info.direction == Direction::ClientToServer) {
            // Change password (120) is the one request numbered among the replies.
            EXPECT_TRUE(code < 101 || code == 120 || code >= 200) << code;
        } else {
            EXPECT_TRUE((code >= 101 && code <= 121) || (code >= 231 && code <= 250)) << code;
        }
    }
    EXPECT_EQ(seen.size(), 40u);
}

TEST(CommandCatalogue, ARequestAndItsReplyAreCountedAlike)
{
    int replied = 0;
    for (const CommandInfo& request : commandCatalogue()) {
        if (request.direction != Direction::ClientToServer) {
            continue;
        }
        const CommandInfo* reply = findCommand(replyCodeOf(codeNumber(request.code)));
        if (request.counted) {
            ASSERT_NE(reply, nullptr) << "counted request " << request.name << " has no reply";
        }
        if (reply != nullptr && reply->direction == Direction::ServerToClient) {
            EXPECT_EQ(reply->counted, request.counted) << request.name << " / " << reply->name;
            ++replied;
        }
    }
    // 1, 2, 4, 5, 6, 10, 11, 12, 13, 14, 15, 120, 230 and 240 have replies.
    EXPECT_EQ(replied, 14);
}

} // namespace
