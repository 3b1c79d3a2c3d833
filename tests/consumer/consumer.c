/*
 * A program built against an installed bacfmt, the way a user builds one:
 * it prints a value, scans a text into a record of its own allocation and
 * prints that back, and names an enumeration value through the text
 * services. Prints "ok" and exits 0 when every result is the expected one.
 */
#include <stdio.h>
#include <string.h>

#include <bacfmt/bacfmt.h>

#define PROP_PRESENT_VALUE 85u
#define PROP_UNITS 117u

static int failures;

static void expect_text(const char *what, const char *got, const char *want)
{
    if (strcmp(got, want) != 0) {
        fprintf(stderr, "%s: got \"%s\", want \"%s\"\n", what, got, want);
        failures++;
    }
}

static void print_real(void)
{
    float value = 21.5f;
    BACnetContents record = {CT_REAL, 1, &value, 0, {0, 0}};
    char text[64];

    BACnetSPrintContents(text, sizeof text, &record, PROP_PRESENT_VALUE, 1, 0);
    expect_text("print a real", text, "21.500000");
}

static void print_units(void)
{
    uint32_t celsius = 62;
    BACnetContents record = {CT_ENUMERATED, 1, &celsius, 0, {0, 0}};
    char text[64];

    BACnetSPrintContents(text, sizeof text, &record, PROP_UNITS, 1, 0);
    expect_text("print units by name", text, "62 => degrees-celsius");
}

/* The filling pass allocates the record when given none; the library
 * releases it again. */
static void scan_and_print_back(void)
{
    char input[] = "[4] 42.25";
    BACnetContents *record = NULL;
    void *tail = NULL;
    char text[64];
    int bytes = BACnetSScanContents(input, &record, 0, 0, &tail, 0, -1);

    if (bytes <= 0 || record == NULL || record->type != CT_REAL || record->count != 1) {
        fprintf(stderr, "scan \"[4] 42.25\": result %d\n", bytes);
        failures++;
    } else {
        BACnetSPrintContents(text, sizeof text, record, PROP_PRESENT_VALUE, 1, 0);
        expect_text("scan and print back", text, "42.250000");
    }
    BACnetFreeContents(record);
}

int main(void)
{
    print_real();
    print_units();
    scan_and_print_back();
    expect_text("property name", BACnetPropIDString(PROP_PRESENT_VALUE), "present-value");
    puts(failures == 0 ? "ok" : "FAILED");
    return failures == 0 ? 0 : 1;
}
