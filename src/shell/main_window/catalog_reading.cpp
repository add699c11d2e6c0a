#include "shell/main_window/catalog_reading.h"

#include <utility>

namespace veldrane {

CatalogReading::Session::Session(CatalogReading& reading) : reading_(reading), isOuter_(!reading.begun_)
{
    if (isOuter_)
        reading_.Begin();
}

CatalogReading::Session::~Session()
{
    if (isOuter_)
        reading_.End();
}

void CatalogReading::Begin()
{
    begun_ = time_.Now();
    shown_ = {};
    rows_ = 0;
    cancelled_ = false;
}

void CatalogReading::End()
{
    begun_.reset();
    if (std::exchange(visible_, false))
        Changed.Raise();
}

std::string CatalogReading::Text() const
{
    return rows_ == 0 ? kReadingStatus
                      : kReadingStatus + (" " + std::to_string(rows_) + (rows_ == 1 ? " row" : " rows"));
}

void CatalogReading::Cancel()
{
    cancelled_ = cancelled_ || begun_.has_value();
}

// Listeners serve events, and the button is one: it is looked at behind them.
void CatalogReading::Read(std::size_t rows)
{
    if (!begun_)
        return;
    rows_ = rows;
    const auto now = time_.Now();
    if (now - *begun_ >= kPatience && now - shown_ >= kInterval) {
        shown_ = now;
        visible_ = true;
        Changed.Raise();
    }
    if (cancelled_)
        throw ReadingCancelled();
}

} // namespace veldrane
