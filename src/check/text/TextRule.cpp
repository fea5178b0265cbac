#include "check/text/TextRule.h"

#include "edit/AbcReading.h"

#include <algorithm>

TextFindings::TextFindings(const QString &text, const CheckOptions &options)
    : text_(text), lines_(lineOffsets(text)), mostFindings_(options.mostFindings)
{
}

void TextFindings::add(Finding finding)
{
    if (!hasRoomFor(finding.kind))
        return;
    ++counts_[size_t(finding.kind)];
    findings_.append(std::move(finding));
}

void TextFindings::addBehindElement(Finding finding)
{
    finding.tick = position;
    if (hasElement_)
        waiting_.append(std::move(finding));
    else
        add(std::move(finding));
}

void TextFindings::elementSounds(Ticks end)
{
    position = end;
    hasElement_ = false;
    for (auto &finding : waiting_) {
        finding.tick = end;
        add(std::move(finding));
    }
    waiting_.clear();
}

QVector<Finding> TextFindings::take()
{
    std::stable_sort(findings_.begin(), findings_.end(),
                     [](const Finding &a, const Finding &b) { return a.range.offset < b.range.offset; });
    return std::move(findings_);
}
