#pragma once
#include "sim/Instrument.h"
#include "sim/Options.h"

#include <gtest/gtest.h>

// An instrument as the command line makes it, and short ways to talk to it.
class SimTest : public ::testing::Test {
protected:
    void Plug(const std::vector<std::string>& arguments) {
        sim::Options options;
        ASSERT_EQ(sim::ReadOptions(arguments, options), "");
        device = sim::MakeInstrument(options.Id, options.Fault);
    }

    sim::Outcome Send(std::string_view message, sim::Link link = sim::Link::Usb) {
        return sim::HandleMessage(device, link, message);
    }
    std::string Ask(std::string_view message) { return Send(message).Reply; }
    std::string Serial(std::string_view message) {
        return sim::ReplyAfterFaults(device.Fault, sim::Link::Serial,
                                     Send(message, sim::Link::Serial));
    }
    bool Takes(std::string_view message) { return Send(message).Error.empty(); }

    sim::Instrument device = sim::MakeInstrument({}, {});
};
