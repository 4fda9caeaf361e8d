#include "protocol/messages/ChangePasswordAnswer.h"
#include "SessionHarness.h"

#include <tuple>

using namespace orbelan;

namespace {

using ChangePasswordLoader = SessionHarness;

// 0 and 1 are told in an information box; any other result shows nothing,
// and the answer is not one of the counted replies.
TEST_F(ChangePasswordLoader, TellsAChangedOrAWrongPasswordAndNothingElse)
{
    requests.pending = 1;
    for (const std::int16_t result : {std::int16_t{0}, std::int16_t{1}, std::int16_t{2}, std::int16_t{-1}}) {
        reply(messages::ChangePasswordAnswer{result});
    }
    ASSERT_EQ(ui.messages().size(), 2u);
    const auto shown = [this](std::size_t index) {
        const ShownMessage& box = ui.messages()[index];
        return std::tuple(box.text, box.caption, box.icon, box.buttons);
    };
    EXPECT_EQ(shown(0), std::tuple("Password succesfully changed", "Change Password", MessageIcon::Information,
                                   MessageButtons::OK));
    EXPECT_EQ(shown(1), std::tuple("Wrong Password. Please try again", "Change Password",
                                   MessageIcon::Information, MessageButtons::OK));
    EXPECT_EQ(requests.pending, 1);
    EXPECT_EQ(abandoned, 0);

    deliver(cutShort(messages::buildMessage(messages::ChangePasswordAnswer{0}), 11));
    EXPECT_EQ(abandoned, 1);
    EXPECT_EQ(ui.messages().size(), 2u);
}

} // namespace
