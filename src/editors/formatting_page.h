#pragma once

#include "model/properties.h"

#include <string>

namespace veldrane {

// The Formatting tab of a field's property: its two format strings, and how the one in hand shows a sample.
class FormattingPage
{
  public:
    explicit FormattingPage(const TTCProperty& property);

    // The texts of the two boxes: chosen among SampleFormats of the property's type, or typed.
    [[nodiscard]] const std::string& cmbFormatGet() const { return onGet_; }
    [[nodiscard]] const std::string& cmbFormatLet() const { return onLet_; }

    // The person chose or typed a format string, or went into its box: the sample is formatted by it from now on.
    void cmbFormatGet_Change(std::string format);
    void cmbFormatLet_Change(std::string format);

    std::string txtInput; // the sample

    // The sample as the string in hand formats it, "<none>" while there is no sample. Before any is in hand, that of
    // the Get is, or if that is empty that of the Let.
    [[nodiscard]] std::string lblSampleOutput() const;

  private:
    std::string onGet_;
    std::string onLet_;
    bool showsLet_;
};

} // namespace veldrane
