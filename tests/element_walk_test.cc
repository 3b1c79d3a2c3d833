// The element walk stays linear in the text: the bytes it visits (an
// internal counter) stay within a small multiple of the text's length for
// long lists and deep nestings, directly and through the dispatcher. And
// the linear walk leaves texts, pointers and NUL bytes exactly as the
// straightforward walk does on the shapes where they could part.
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/scan.h>

#include "scan/element_walk.h"
#include "scan/lexical.h"

namespace {

using namespace bacfmt;

std::string Repeat(const std::string &piece, size_t times, const std::string &separator = "") {
    std::string text;
    for (size_t i = 0; i < times; ++i) {
        if (i > 0) text.append(separator);
        text.append(piece);
    }
    return text;
}

std::string Nested(size_t levels, const std::string &inner) {
    std::string text(levels, '(');
    text.append(inner);
    text.append(levels, ')');
    return text;
}

// A visit of every byte by the first level, once more by a nesting and a
// few single bytes of trimming: anything quadratic is far above this.
constexpr size_t kVisitsPerByte = 4;

struct Shape {
    const char *name;
    std::string text;
    int elements;
};

std::vector<Shape> LargeShapes() {
    constexpr size_t n = 100000;
    return {
        {"elements", Repeat("7", n, ","), static_cast<int>(n)},
        {"bracketed elements", Nested(1, Repeat("7", n, ",")), static_cast<int>(n)},
        {"groups", Repeat("(1,2)", n, ","), static_cast<int>(n)},
        {"groups with blanks", Repeat(" (1, 2) ", n / 2, ","), static_cast<int>(n / 2)},
        {"nesting", Nested(n, "7"), 1},
        {"nesting with a list inside", Nested(n, "1,2,3"), 3},
        {"nesting with a list halfway", Nested(n / 2, Nested(n / 2, "1").append(",2")), 2},
        {"nesting of braces and blanks", Repeat("{ ", n).append("7").append(Repeat(" }", n)), 1},
    };
}

TEST(ElementWalk, VisitsEachByteAFewTimesAtMost) {
    for (const Shape &shape : LargeShapes()) {
        std::vector<char> text(shape.text.begin(), shape.text.end());
        text.push_back('\0');
        elementWalkBytes = 0;
        ElementList list(text.data());
        ASSERT_EQ(list.count(), shape.elements) << shape.name;
        int walked = 0;
        while (list.Next() != nullptr) ++walked;
        EXPECT_EQ(walked, shape.elements) << shape.name;
        EXPECT_LE(elementWalkBytes, kVisitsPerByte * shape.text.size()) << shape.name;
    }
}

TEST(ElementWalk, ScanningIsLinearThroughTheDispatcher) {
    for (const Shape &shape : LargeShapes()) {
        std::vector<char> text(shape.text.begin(), shape.text.end());
        text.push_back('\0');
        elementWalkBytes = 0;
        BACnetContents probe{};
        probe.type = CT_UNSIGNED;
        BACnetContents *slot = &probe;
        void *tail = nullptr;
        const int sized = BACnetSScanContents(text.data(), &slot, 0, 0, &tail, 1, -1);
        EXPECT_GT(sized, 0) << shape.name;
        EXPECT_LE(elementWalkBytes, kVisitsPerByte * shape.text.size()) << shape.name;
    }
}

// Texts of both walks, their elements and the bytes left behind.
struct Outcome {
    int count;
    bool firstIsGroup;
    std::vector<std::string> elements;
    std::string text;
};

Outcome WalkAll(const std::string &in, bool reference) {
    useReferencePaths = reference;
    std::vector<char> text(in.begin(), in.end());
    text.push_back('\0');
    ElementList list(text.data());
    Outcome outcome{list.count(), list.firstIsGroup(), {}, {}};
    for (char *element; (element = list.Next()) != nullptr;) outcome.elements.emplace_back(element);
    outcome.text.assign(text.begin(), text.end());
    useReferencePaths = false;
    return outcome;
}

TEST(ElementWalk, AgreesWithTheStraightforwardWalk) {
    const char *const texts[] = {
        "((((1,2),3)),4)",        // the first comma two levels down
        "(((1)) x, 2)",           // a word behind the nesting
        " ( ( (7) ) ,8 )  \r\n",  // blanks between the openers and a trimmed tail
        "((('a,b')))",            // a single quote first in the innermost level
        "((( 'a,b')))",           // ... and after a blank
        "(((\"x,y\" , z)))",
        "{({(1)})}",
        "((()))",
        "((1),(2)),3",
        "(\t(1)) ",
        "((1,2)",
        "((1)))",
        "((1) ,(2) ) , 3 ",
        "1,2,,\"3,4\",'5,6' , (7,8),",
    };
    for (const char *text : texts) {
        const Outcome linear = WalkAll(text, false);
        const Outcome straight = WalkAll(text, true);
        EXPECT_EQ(linear.count, straight.count) << text;
        EXPECT_EQ(linear.firstIsGroup, straight.firstIsGroup) << text;
        EXPECT_EQ(linear.elements, straight.elements) << text;
        EXPECT_EQ(linear.text, straight.text) << text;
    }
}

// A caller that writes the original text back between elements (as a
// group scanner does after a trial split) gets what the straightforward walk
// gives from the restored text.
TEST(ElementWalk, FollowsATextWrittenBackBetweenElements) {
    for (const char *original : {"(1,2) ,3,  4   ", "1,(2,3),4\r\n", "a,b"}) {
        std::vector<std::string> walked[2];
        for (bool reference : {false, true}) {
            useReferencePaths = reference;
            std::vector<char> text(original, original + std::strlen(original) + 1);
            ElementList list(text.data());
            for (char *element; (element = list.Next()) != nullptr;) {
                walked[reference].emplace_back(element);
                std::memcpy(text.data(), original, text.size());
            }
            useReferencePaths = false;
        }
        EXPECT_EQ(walked[0], walked[1]) << original;
    }
}

}  // namespace
