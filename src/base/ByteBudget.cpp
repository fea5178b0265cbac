#include "base/ByteBudget.h"

#include <algorithm>

ByteBudget &ByteBudget::shared()
{
    static ByteBudget budget(std::size_t(384) << 20);
    return budget;
}

void ByteBudget::grant(std::list<Request> &granted)
{
    while (!waiting_.empty()) {
        auto *const share = waiting_.front().share;
        if (used_ > 0 && used_ + share->bytes_ > limit_)
            return;
        used_ += share->bytes_;
        share->isGranted_ = true;
        granted.splice(granted.end(), waiting_, waiting_.begin());
        granted.back().granted();
    }
}

ByteShare::~ByteShare()
{
    withdraw();
    std::list<ByteBudget::Request> granted;
    const std::lock_guard lock(budget_.mutex_);
    if (!isGranted_)
        return;
    budget_.used_ -= bytes_;
    budget_.grant(granted);
}

void ByteShare::ask(std::function<void()> granted)
{
    if (bytes_ == 0) {
        granted();
        return;
    }
    std::list<ByteBudget::Request> gone;
    const std::lock_guard lock(budget_.mutex_);
    budget_.waiting_.push_back({this, std::move(granted)});
    budget_.grant(gone);
}

void ByteShare::withdraw()
{
    std::list<ByteBudget::Request> gone;
    const std::lock_guard lock(budget_.mutex_);
    const auto isOurs = [this](const auto &request) { return request.share == this; };
    const auto request = std::find_if(budget_.waiting_.begin(), budget_.waiting_.end(), isOurs);
    if (request == budget_.waiting_.end())
        return;
    gone.splice(gone.end(), budget_.waiting_, request);
    budget_.grant(gone); // whoever stood behind it
}
