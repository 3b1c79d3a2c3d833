#include "constructed/nested_frame.h"

#include <string>

#include "datatypes/table.h"

namespace bacfmt {

int NestedParts::InlineElement(uint32_t code, char *text, void *element, size_t room) {
    const DatatypeInfo *row = FindDatatype(code);
    if (row == nullptr || row->elementSize > room) return kUnsupported;
    if (row->scan.kind == ScanKind::Null) return 0;  // nothing to store
    if (row->scan.scan == nullptr) return kUnsupported;
    // Some scanners take any number of elements whatever the caller
    // expects (bit strings): count them first, on a copy, since a walk cuts
    // the text, and refuse anything but one.
    std::string copy(text);
    int32_t found = 0;
    void *none = nullptr;
    void *noTail = nullptr;
    const ScanCall counting{copy.data(), &none, 0, &noTail, &found, 1, -1};
    const int sized = row->scan.scan(counting);
    if (sized < 0) return sized;
    if (found != 1) return kSyntaxError;

    void *slot = element;
    void *separateCursor = nullptr;
    void **cursor = !sizing_ && !separate_ ? reinterpret_cast<void **>(&tail_) : &separateCursor;
    int32_t one = 1;
    const ScanCall call{text, &slot, separate_ ? 1 : 0, cursor, &one, sizing_ ? 1 : 0, -1};
    const int result = row->scan.scan(call);
    if (result < 0) return result;
    return result - static_cast<int>(row->elementSize);
}

}  // namespace bacfmt
