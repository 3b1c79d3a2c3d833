// Every example of docs/notation.md reads back as it is written: scanned as
// its datatype into one block laid out from the sizing pass and printed by
// number.
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "datatypes/table.h"
#include "roundtrip_harness.h"

namespace {

struct Example {
    uint32_t code;
    std::string text;
    int line;
};

// The "DATATYPE: text" lines of the document's notation blocks.
std::vector<Example> Examples() {
    std::ifstream file(BACFMT_SOURCE_DIR "/docs/notation.md");
    std::vector<Example> examples;
    std::string line;
    bool inBlock = false;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.rfind("```", 0) == 0) {
            inBlock = line == "```notation";
            continue;
        }
        if (!inBlock) continue;
        const auto colon = line.find(": ");
        const std::string name = line.substr(0, colon);
        const bacfmt::DatatypeInfo *row = nullptr;
        for (const auto *r = bacfmt::DatatypeRowsBegin(); r != bacfmt::DatatypeRowsEnd(); ++r)
            if (name == r->name) row = r;
        if (colon == std::string::npos || row == nullptr) {
            ADD_FAILURE() << "docs/notation.md:" << number << ": not DATATYPE: text";
            continue;
        }
        examples.push_back({row->code, line.substr(colon + 2), number});
    }
    return examples;
}

TEST(NotationDocument, ExamplesReadBack) {
    const std::vector<Example> examples = Examples();
    ASSERT_GT(examples.size(), 40u);
    for (const Example &e : examples) {
        // One block laid out from the sizing pass, as a stack would.
        BACnetContents sizing = bacfmt_test::Typed(e.code);
        BACnetContents *target = &sizing;
        void *tail = nullptr;
        const int bytes = bacfmt_test::Scan(e.text, &target, 0, &tail, 1, 0);
        ASSERT_GT(bytes, 0) << "docs/notation.md:" << e.line;
        std::vector<unsigned char> block(static_cast<size_t>(bytes) + 64);
        auto *record = reinterpret_cast<BACnetContents *>(block.data());
        *record = bacfmt_test::Typed(e.code);
        ASSERT_GT(bacfmt_test::Scan(e.text, &record, 0, &tail, 0, 0), 0) << "docs/notation.md:" << e.line;
        EXPECT_EQ(bacfmt_test::Print(*record, bacfmt_test::Notation{e.code, e.text.c_str()}), e.text)
            << "docs/notation.md:" << e.line;
    }
}

// The document covers every datatype that scans and prints.
TEST(NotationDocument, EveryScannableDatatypeHasAnExample) {
    std::vector<uint32_t> shown;
    for (const Example &e : Examples()) shown.push_back(e.code);
    for (const auto *row = bacfmt::DatatypeRowsBegin(); row != bacfmt::DatatypeRowsEnd(); ++row) {
        const bool asn1 = row->code >= CT_ASN1_FIRST && row->code <= CT_ASN1_LAST;
        if (asn1 || row->scan.scan == nullptr || row->print == nullptr) continue;
        EXPECT_NE(std::find(shown.begin(), shown.end(), row->code), shown.end())
            << row->name << " has no example in docs/notation.md";
    }
}

}  // namespace
