// Short symbols of the engineering units, for showing an analog value with
// its unit. The texts are UTF-8 (degree sign C2 B0, superscript two C2 B2).
// The ohm is the plain letter "O" and cubic measures carry a plain "3" so
// that those symbols stay ASCII; the time units from years to days are
// German words. Both are what displays built on this library expect.
// Units 115 to 121 show placeholders ("del-unit-N") instead of symbols.
#include <cstdint>
#include <iterator>

#include <bacfmt/catalog.h>

namespace {

constexpr const char *kUnitSymbols[] = {
    /*   0 */ "m²",             // square-meters
    /*   1 */ "ft²",            // square-feet
    /*   2 */ "mA",             // milliamperes
    /*   3 */ "A",              // amperes
    /*   4 */ "O",              // ohms
    /*   5 */ "V",              // volts
    /*   6 */ "kV",             // kilovolts
    /*   7 */ "MV",             // megavolts
    /*   8 */ "VA",             // volt-amperes
    /*   9 */ "kVA",            // kilovolt-amperes
    /*  10 */ "MVA",            // megavolt-amperes
    /*  11 */ "VA reactive",    // volt-amperes-reactive
    /*  12 */ "kVA reactive",   // kilovolt-amperes-reactive
    /*  13 */ "MVA reactive",   // megavolt-amperes-reactive
    /*  14 */ "° phase",        // degrees-phase
    /*  15 */ "power-factor",   // power-factor
    /*  16 */ "J",              // joules
    /*  17 */ "kJ",             // kilojoules
    /*  18 */ "Wh",             // watt-hours
    /*  19 */ "kWh",            // kilowatt-hours
    /*  20 */ "btus",           // btus
    /*  21 */ "therms",         // therms
    /*  22 */ "th",             // ton-hours
    /*  23 */ "J/kg",           // joules-per-kilogram-dry-air
    /*  24 */ "btus/lb",        // btus-per-pound-dry-air
    /*  25 */ "cycles/h",       // cycles-per-hour
    /*  26 */ "cycles/min",     // cycles-per-minute
    /*  27 */ "Hz",             // hertz
    /*  28 */ "g/kg",           // grams-of-water-per-kilogram-dry-air
    /*  29 */ "%rF",            // percent-relative-humidity
    /*  30 */ "mm",             // millimeters
    /*  31 */ "m",              // meters
    /*  32 */ "in",             // inches
    /*  33 */ "ft",             // feet
    /*  34 */ "W/ft²",          // watts-per-square-foot
    /*  35 */ "W/m²",           // watts-per-square-meter
    /*  36 */ "lm",             // lumens
    /*  37 */ "lux",            // luxes
    /*  38 */ "foot-candles",   // foot-candles
    /*  39 */ "kg",             // kilograms
    /*  40 */ "pounds-mass",    // pounds-mass
    /*  41 */ "t",              // tons
    /*  42 */ "kg/s",           // kilograms-per-second
    /*  43 */ "kg/min",         // kilograms-per-minute
    /*  44 */ "kg/h",           // kilograms-per-hour
    /*  45 */ "pounds-mass/min",// pounds-mass-per-minute
    /*  46 */ "pounds-mass/h",  // pounds-mass-per-hour
    /*  47 */ "W",              // watts
    /*  48 */ "kW",             // kilowatts
    /*  49 */ "MW",             // megawatts
    /*  50 */ "btu/h",          // btus-per-hour
    /*  51 */ "PS",             // horsepower
    /*  52 */ "tons-refrig.",   // tons-refrigeration
    /*  53 */ "Pa",             // pascals
    /*  54 */ "kPa",            // kilopascals
    /*  55 */ "bar",            // bars
    /*  56 */ "lb/in²",         // pounds-force-per-square-inch
    /*  57 */ "cm of water",    // centimeters-of-water
    /*  58 */ "in of water",    // inches-of-water
    /*  59 */ "mmHG",           // millimeters-of-mercury
    /*  60 */ "cmHG",           // centimeters-of-mercury
    /*  61 */ "inchHG",         // inches-of-mercury
    /*  62 */ "°C",             // degrees-celsius
    /*  63 */ "K",              // kelvin
    /*  64 */ "°F",             // degrees-fahrenheit
    /*  65 */ "Gt °C",          // degree-days-celsius
    /*  66 */ "Gt °F",          // degree-days-fahrenheit
    /*  67 */ "Jahre",          // years
    /*  68 */ "Monate",         // months
    /*  69 */ "Wochen",         // weeks
    /*  70 */ "Tage",           // days
    /*  71 */ "h",              // hours
    /*  72 */ "min",            // minutes
    /*  73 */ "s",              // seconds
    /*  74 */ "m/s",            // meters-per-second
    /*  75 */ "km/h",           // kilometers-per-hour
    /*  76 */ "ft/s",           // feet-per-second
    /*  77 */ "ft/min",         // feet-per-minute
    /*  78 */ "mph",            // miles-per-hour
    /*  79 */ "ft3",            // cubic-feet
    /*  80 */ "m3",             // cubic-meters
    /*  81 */ "imp.-gallons",   // imperial-gallons
    /*  82 */ "l",              // liters
    /*  83 */ "us-gallons",     // us-gallons
    /*  84 */ "ft3/min",        // cubic-feet-per-minute
    /*  85 */ "m3/s",           // cubic-meters-per-second
    /*  86 */ "imp.-gal/min",   // imperial-gallons-per-minute
    /*  87 */ "l/s",            // liters-per-second
    /*  88 */ "l/min",          // liters-per-minute
    /*  89 */ "us-gal/min",     // us-gallons-per-minute
    /*  90 */ "°",              // degrees-angular
    /*  91 */ "°C/h",           // degrees-celsius-per-hour
    /*  92 */ "°C/min",         // degrees-celsius-per-minute
    /*  93 */ "°F/h",           // degrees-fahrenheit-per-hour
    /*  94 */ "°F/min",         // degrees-fahrenheit-per-minute
    /*  95 */ "",               // no-units
    /*  96 */ "ppm",            // parts-per-million
    /*  97 */ "ppm/1000",       // parts-per-billion
    /*  98 */ "%",              // percent
    /*  99 */ "%/s",            // percent-per-second
    /* 100 */ "1/min",          // per-minute
    /* 101 */ "1/s",            // per-second
    /* 102 */ "psi/°F",         // psi-per-degree-fahrenheit
    /* 103 */ "rad",            // radians
    /* 104 */ "U/min",          // revolutions-per-minute
    /* 105 */ "currency-1",     // currency1
    /* 106 */ "currency-2",     // currency2
    /* 107 */ "currency-3",     // currency3
    /* 108 */ "currency-4",     // currency4
    /* 109 */ "currency-5",     // currency5
    /* 110 */ "currency-6",     // currency6
    /* 111 */ "currency-7",     // currency7
    /* 112 */ "currency-8",     // currency8
    /* 113 */ "currency-9",     // currency9
    /* 114 */ "currency-10",    // currency10
    /* 115 */ "del-unit-115",   // square-inches
    /* 116 */ "del-unit-116",   // square-centimeters
    /* 117 */ "del-unit-117",   // btus-per-pound
    /* 118 */ "del-unit-118",   // centimeters
    /* 119 */ "del-unit-119",   // pounds-mass-per-second
    /* 120 */ "del-unit-120",   // delta-degrees-fahrenheit
    /* 121 */ "del-unit-121",   // delta-kelvin
    /* 122 */ "kO",             // kilohms
    /* 123 */ "MO",             // megohms
    /* 124 */ "mV",             // millivolts
    /* 125 */ "kJ/kg",          // kilojoules-per-kilogram
    /* 126 */ "mJ",             // megajoules
    /* 127 */ "J/K",            // joules-per-degree-kelvin
    /* 128 */ "J/kgK",          // joules-per-kilogram-degree-kelvin
    /* 129 */ "kHz",            // kilohertz
    /* 130 */ "MHz",            // megahertz
    /* 131 */ "1/h",            // per-hour
    /* 132 */ "mW",             // milliwatts
    /* 133 */ "hPa",            // hectopascals
    /* 134 */ "mbar",           // millibars
    /* 135 */ "m3/h",           // cubic-meters-per-hour
    /* 136 */ "l/h",            // liters-per-hour
    /* 137 */ "kWh/m²",         // kilowatt-hours-per-square-meter
    /* 138 */ "kWh/ft²",        // kilowatt-hours-per-square-foot
    /* 139 */ "MJ/m²",          // megajoules-per-square-meter
    /* 140 */ "MJ/ft²",         // megajoules-per-square-foot
    /* 141 */ "W/m²K",          // watts-per-square-meter-degree-kelvin
};
static_assert(std::size(kUnitSymbols) == 142, "one symbol for each unit 0..141");

}  // namespace

// Units past the table read as "no units", the empty text of unit 95.
extern "C" const char *BACnetUnit2IsoUnitString(uint32_t unit) {
    return unit < std::size(kUnitSymbols) ? kUnitSymbols[unit] : "";
}
