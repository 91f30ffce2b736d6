// The regular-expression calls: one block in, messages out.
#include "qzerr.h"
#include "qzregex.h"
#include "tokens/regex_compile.h"
#include "tokens/regex_match.h"
#include "tokens/regex_nodes.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

namespace qz::regex {

namespace {

void report(const char *reason)
{
    qzerr_throw(-1, QZERR_FATAL, "Error in regular expression: %s \n", reason);
}

std::size_t aligned(std::size_t size)
{
    constexpr std::size_t kAlignment = alignof(std::max_align_t);
    return (size + kAlignment - 1) / kAlignment * kAlignment;
}

/// Puts program and plan into one block.
qz_regexp *assemble(const NodeProgram &program, const std::vector<Byte> &plan)
{
    const std::size_t size = program.bytes.size();
    const std::size_t plan_at = aligned(offsetof(qz_regexp, program) + size);
    auto *block = static_cast<char *>(std::calloc(1, plan_at + plan.size()));
    if (block == nullptr)
        throw std::bad_alloc();
    auto *result = reinterpret_cast<qz_regexp *>(block);
    char *const nodes = block + offsetof(qz_regexp, program);
    std::memcpy(nodes, program.bytes.data(), size);
    std::memcpy(block + plan_at, plan.data(), plan.size());

    const StartHints hints = start_hints(program);
    result->regstart = hints.first_byte;
    result->reganch = hints.anchored ? 1 : 0;
    if (hints.required.length > 0) {
        result->regmust = nodes + hints.required.at;
        result->regmlen = static_cast<int>(hints.required.length);
    }
    result->program_size = static_cast<int>(size);
    result->plan_at = static_cast<int>(plan_at);
    return result;
}

/// @return how many slots were filled; 0 for no match.
std::size_t match(const qz_regexp &program, const char *text, Slots &slots)
{
    const auto *block = reinterpret_cast<const Byte *>(&program);
    const Byte *const nodes = block + offsetof(qz_regexp, program);
    const auto *plan = reinterpret_cast<const Plan *>(block + program.plan_at);
    if (std::memcmp(nodes, plan->nodes(), plan->nodes_size) == 0)
        return search(*plan, text, slots) ? plan->slot_count : 0;
    // Somebody wrote into the nodes. They are the program: run what they say, if they still say
    // something.
    const std::vector<Byte> fresh = make_plan(nodes, plan->nodes_size, false);
    plan = reinterpret_cast<const Plan *>(fresh.data());
    return search(*plan, text, slots) ? plan->slot_count : 0;
}

void fill_sub_matches(qz_regexp &program, const Slots &slots, std::size_t filled)
{
    for (std::size_t i = 0; i < 10; ++i) {
        const bool known = 2 * i < filled;
        program.startp[i] = known ? reinterpret_cast<const char *>(slots[2 * i]) : nullptr;
        program.endp[i] = known ? reinterpret_cast<const char *>(slots[2 * i + 1]) : nullptr;
    }
}

} // namespace

} // namespace qz::regex

qz_regexp *qz_regcomp(const char *pattern)
{
    using namespace qz::regex;
    if (pattern == nullptr) {
        report("NULL argument");
        return nullptr;
    }
    try {
        const NodeProgram program = compile(pattern);
        return assemble(program, make_plan(program.bytes.data(), program.bytes.size(), true));
    } catch (const Refusal &refusal) {
        report(refusal.reason);
    } catch (const std::bad_alloc &) {
        report("out of space");
    }
    return nullptr;
}

int qz_regexec(qz_regexp *program, const char *text)
{
    using namespace qz::regex;
    if (program == nullptr || text == nullptr) {
        report("NULL parameter");
        return 0;
    }
    if (program->program[0] != kMagic) {
        report("corrupted program");
        return 0;
    }
    try {
        Slots slots;
        const std::size_t filled = match(*program, text, slots);
        if (filled == 0)
            return 0;
        fill_sub_matches(*program, slots, filled);
        return 1;
    } catch (const Refusal &refusal) {
        report(refusal.reason);
    } catch (const std::bad_alloc &) {
        report("out of space");
    }
    return 0;
}
