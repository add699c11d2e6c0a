#include "editors/formatting_page.h"

#include "editors/sample_format.h"

#include <utility>

namespace veldrane {

FormattingPage::FormattingPage(const TTCProperty& property)
    : onGet_(property.FormatStringOnGet), onLet_(property.FormatStringOnLet),
      showsLet_(onGet_.empty() && !onLet_.empty())
{}

void FormattingPage::cmbFormatGet_Change(std::string format)
{
    onGet_ = std::move(format);
    showsLet_ = false;
}

void FormattingPage::cmbFormatLet_Change(std::string format)
{
    onLet_ = std::move(format);
    showsLet_ = true;
}

std::string FormattingPage::lblSampleOutput() const
{
    return txtInput.empty() ? "<none>" : FormattedSample(txtInput, showsLet_ ? onLet_ : onGet_);
}

} // namespace veldrane
