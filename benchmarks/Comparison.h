// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillbar::benchmarks {

/// Benchmarks of one subject: ours, registered as "SUBJECT/Quillbar", and alternatives that do the
/// same job on the same inputs, as "SUBJECT/NAME". Each run goes through the inputs in turn; an
/// alternative whose results differ from ours is not timed but fails.
template <class Input, class Ours>
class Comparison final {
public:
    /// `ours` takes an input and returns a value that can be compared.
    Comparison(std::string subject, std::vector<Input> inputs, Ours ours)
        : m_subject(std::move(subject))
        , m_inputs(std::make_shared<std::vector<Input>>(std::move(inputs)))
        , m_ours(std::move(ours)) {
        add("Quillbar", m_ours);
    }

    template <class Alternative>
    Comparison& with(const std::string& name, Alternative alternative) {
        add(name, std::move(alternative));
        return *this;
    }

private:
    template <class Work>
    void add(const std::string& name, Work work) {
        const auto run = [inputs = m_inputs, ours = m_ours, work](benchmark::State& state) {
            for (const Input& input : *inputs) {
                if (!(work(input) == ours(input))) {
                    state.SkipWithError("the results differ");
                    return;
                }
            }
            std::size_t next = 0;
            for (const auto _ : state) {
                benchmark::DoNotOptimize(work((*inputs)[next]));
                next = next + 1 == inputs->size() ? 0 : next + 1;
            }
        };
        benchmark::RegisterBenchmark((m_subject + "/" + name).c_str(), run);
    }

    std::string m_subject;
    std::shared_ptr<std::vector<Input>> m_inputs;
    Ours m_ours;
};

}  // namespace quillbar::benchmarks
