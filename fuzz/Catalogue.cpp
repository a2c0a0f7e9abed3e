#include "link/CatalogueFuncBox.h"

#include "Common.h"
#include "link/LinkWork.h"

#include <algorithm>

// A failure leaves the lists as they were, and no list is longer than its table.
void Fuzz(std::string_view input) {
    ScriptLink(input);
    const LinkWork work("");
    WaveCatalogue lists;
    for (const auto refresh : {RefreshCatalogue, RefreshDigitCatalogue, RefreshCatalogue}) {
        const WaveCatalogue before = lists;
        Link.CommError = false;
        refresh(lists);
        Require(!Link.CommError || (before.AllWaveName == lists.AllWaveName &&
                                    before.UserWaveName == lists.UserWaveName));
        const auto all = std::span(lists.AllWaveName).first(lists.AllWaveCount);
        Require(std::ranges::none_of(all, &std::string::empty));
        Require(unsigned(lists.UsedStoreCount) <= Link.StoreLocationCount);
        Require(lists.DigitNameCount >= 0 && lists.DigitNameCount <= MostDigitNames);
        Require(FirstStoredWave(lists) >= 0 && FirstStoredWave(lists) <= lists.AllWaveCount);
    }
}
