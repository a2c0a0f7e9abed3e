#include "Options.h"

#include <algorithm>

namespace sim {

namespace {

// What is known only when all arguments are read.
struct Wishes {
    bool HasModel = false;
    std::string Firmware = "new";
};

struct OptionRow {
    const char* Name;
    const char* Value;  // its name in the help; null: a switch
    const char* Help;
    std::string (*Take)(Options& options, Wishes& wishes, const std::string& value);
};

std::string TakeModel(Options& options, Wishes& wishes, const std::string& value) {
    wishes.HasModel = true;
    return FindFamily(value, options.Id.Model) ? "" : "no such model: " + value;
}

std::string TakeFirmware(Options&, Wishes& wishes, const std::string& value) {
    wishes.Firmware = value;
    return {};
}

std::string TakeVariant(Options& options, Wishes&, const std::string&) {
    options.Id.Variant = true;
    return {};
}

// It becomes part of file names and of the identification.
std::string TakeSerial(Options& options, Wishes&, const std::string& value) {
    const bool plain = std::ranges::all_of(value, [](char each) {
        return (each >= '0' && each <= '9') || (each >= 'A' && each <= 'Z') ||
               (each >= 'a' && each <= 'z') || each == '-' || each == '_';
    });
    if (value.empty() || value.size() > 32 || !plain) {
        return "a serial number is 1 to 32 letters, digits, - and _: " + value;
    }
    options.Id.Serial = value;
    return {};
}

std::string TakeStore(Options& options, Wishes&, const std::string& value) {
    options.Stores.push_back(value);
    return {};
}

std::string TakeFault(Options& options, Wishes&, const std::string& value) {
    return SetFault(options.Fault, value) ? "" : "no such fault: " + value;
}

std::string TakePicture(Options& options, Wishes&, const std::string& value) {
    options.Picture = value;
    return {};
}

std::string TakeQuiet(Options& options, Wishes&, const std::string&) {
    options.IsQuiet = true;
    return {};
}

std::string TakeHelp(Options& options, Wishes&, const std::string&) {
    options.WantsHelp = true;
    return {};
}

std::string TakeVersion(Options& options, Wishes&, const std::string&) {
    options.WantsVersion = true;
    return {};
}

constexpr OptionRow Rows[] = {
    {"--model", "KT1100|KT2200|KT3300", "the family (KT3300)", TakeModel},
    {"--firmware", "old|new|VERSION", "old ones spell some commands in another way (new)",
     TakeFirmware},
    {"--variant", nullptr, "the KT1100 with ten locations", TakeVariant},
    {"--serial", "TEXT", "serial number, so that several can run (SIM0001)", TakeSerial},
    {"--store", "NAME=FILE",
     "fills a location: numbers 0..16383, or sine:4096, ramp:N, square:N;\n"
     "                                  digital: words:FILE, numbers 0..65535, or count:N",
     TakeStore},
    {"--fault", "FAULT", "misbehaves, see below; may be given again", TakeFault},
    {"--picture", "FILE.svg", "keeps a picture of the active output there", TakePicture},
    {"--quiet", nullptr, "no transcript", TakeQuiet},
    {"--help", nullptr, "this text", TakeHelp},
    {"--version", nullptr, "the version", TakeVersion},
};

std::string ChooseFirmware(Options& options, const Wishes& wishes) {
    const FamilyRow& family = RowOf(options.Id.Model);
    const std::string& wish = wishes.Firmware;
    options.Id.Firmware = wish == "new"   ? family.NewFirmware
                          : wish == "old" ? family.LastOldFirmware
                                          : wish;
    if (wish == "old" && options.Id.Variant) return "the variant never has old firmware";
    const bool plain = std::ranges::all_of(
        options.Id.Firmware, [](char each) { return each > ' ' && each <= '~' && each != ','; });
    if (wish.empty() || wish.size() > 40 || !plain) return "not a firmware version: " + wish;
    return {};
}

}  // namespace

std::string ReadOptions(const std::vector<std::string>& arguments, Options& options) {
    Wishes wishes;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& name = arguments[at];
        const OptionRow* row =
            std::ranges::find_if(Rows, [&](const OptionRow& each) { return name == each.Name; });
        if (row == std::end(Rows)) return "no such option: " + name;
        if (row->Value && ++at == arguments.size()) return name + " takes a value";
        std::string error = row->Take(options, wishes, row->Value ? arguments[at] : "");
        if (!error.empty()) return error;
    }
    if (options.Id.Variant && !wishes.HasModel) options.Id.Model = Family::Kt1100;
    if (options.Id.Variant && options.Id.Model != Family::Kt1100) return "--variant is a KT1100";
    return ChooseFirmware(options, wishes);
}

std::string HelpText() {
    std::string text =
        "tidemark-sim plays a signal generator. While it runs, the editor finds it as a USB "
        "device\n"
        "and as a serial port; when it ends it is unplugged.\n\n";
    for (const OptionRow& row : Rows) {
        std::string left = std::string("  ") + row.Name + (row.Value ? " " : "");
        if (row.Value) left += row.Value;
        left.resize(std::max<std::size_t>(left.size() + 2, 34), ' ');
        text += left + row.Help + "\n";
    }
    return text + "\nFaults: " + FaultNames() +
           "\n\nWhile it runs, type help, show, list, picture FILE.svg or quit.\n";
}

}  // namespace sim
