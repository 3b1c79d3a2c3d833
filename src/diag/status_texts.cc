// Texts of the stack's status codes. The codes are sparse; a status
// without an entry reads "Unknown BACnet status".
#include <bacfmt/diag.h>

namespace {

struct StatusText {
    unsigned status;
    const char *text;
};

constexpr StatusText kStatusTexts[] = {
    { 0, "OK"},
    { 1, "Unknown error"},
    { 2, "Service not found"},
    { 3, "Not initialized"},
    { 4, "Not supported"},
    { 5, "Reject"},
    {16, "Invalid parameter or invalid syntax"},
    {18, "Already exists"},
    {19, "Bad configuration (APDU properties?)"},
    {32, "Out of memory"},
    {33, "Out of resources"},
    {34, "Transmit buffer overflow"},
    {35, "Receive buffer overflow"},
    {48, "Timeout"},
    {50, "Illegal response"},
    {51, "Response too long"},
    {52, "Invalid data type"},
    {53, "Value out of range"},
    {54, "Value out of space"},
    {64, "BACnet error"},
    {65, "BACnet reject"},
    {66, "BACnet abort"},
    {67, "Invalid packet"},
    {80, "Driver didn't find Packet Driver"},
    {81, "Driver doesn't support Packet Driver"},
    {82, "Driver can't initialize"},
    {83, "Driver can't send"},
};

}  // namespace

extern "C" const char *BACnetStatusString(unsigned status) {
    for (const StatusText &entry : kStatusTexts)
        if (entry.status == status) return entry.text;
    return "Unknown BACnet status";
}
