#include "ui/FieldKeyFilter.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace orbelan;

namespace {

struct Case {
    const char* text;
    int fieldType;
    char key;
    bool accepted;
};

TEST(FieldKeyFilter, AcceptsWhatAValueOfTheFieldTypeCanHold)
{
    const Case cases[] = {
        {"", 3, '-', true},    {"1", 3, '-', false},  {"", 17, '-', false}, {"12", 19, '7', true},
        {"1", 2, '.', false},  {"1", 5, '.', true},   {"1.5", 131, '.', false}, {"1.5", 4, '\b', true},
        {"a", 202, '"', false}, {"a", 8, '\'', false}, {"a", 129, '-', true},  {"", 11, '1', false},
        {"", 5, 'e', false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FieldKeyFilter::accepts(c.text, c.fieldType, c.key), c.accepted)
            << c.text << " type " << c.fieldType << " key " << c.key;
    }
}

TEST(FieldKeyFilter, TheBoxKeepsOnlyTheKeysItAccepts)
{
    QLineEdit box;
    new FieldKeyFilter(5, box);
    QTest::keyClicks(&box, "-1a.5.-");
    EXPECT_EQ(box.text(), "-1.5");
}

} // namespace
