#pragma once
// Random tests come in two lengths: a few fixed seeds with the others, and as `ctest -L soak` in
// rounds with a fresh seed each. TIDEMARK_SEED=n repeats a round.
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <vector>

/// The seed of TIDEMARK_SEED alone where it is set.
inline std::vector<unsigned> Seeds(std::initializer_list<unsigned> fixed) {
    const char* seed = std::getenv("TIDEMARK_SEED");
    if (seed == nullptr) return fixed;
    return {static_cast<unsigned>(std::stoul(seed))};
}
