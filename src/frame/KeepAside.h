#pragma once
// Holds fields of a record aside while something else works on them: at the end of its life each of
// them has its value back. A surface is taken out, so that the record has a null one meanwhile;
// numbers and flags keep their values until they are set.
#include <tuple>
#include <utility>

template <typename... Fields>
class KeepAside {
public:
    explicit KeepAside(Fields&... fields) : fields_(fields...), kept_(std::move(fields)...) {}
    ~KeepAside() { fields_ = std::move(kept_); }
    KeepAside(const KeepAside&) = delete;
    KeepAside& operator=(const KeepAside&) = delete;

private:
    std::tuple<Fields&...> fields_;
    std::tuple<Fields...> kept_;
};
