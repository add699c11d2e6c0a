#pragma once

#include <string>

namespace veldrane {

enum class Visibility
{
    Hidden,
    Shown,
};

// The form that lies on top while a project opens (frmLoading). Hidden at first.
class LoadingForm
{
  public:
    virtual ~LoadingForm() = default;

    // What the form says from now on. Never throws.
    virtual void SetStatus(const std::string& text) = 0;

    // Shows or hides the form and returns what it was before. Never throws.
    virtual Visibility Show(Visibility visibility) = 0;
};

// Shows or hides the form for as long as it lives.
class LoadingFormWhile
{
  public:
    LoadingFormWhile(LoadingForm& form, Visibility visibility) : form_(form), before_(form.Show(visibility)) {}
    ~LoadingFormWhile() { form_.Show(before_); }
    LoadingFormWhile(const LoadingFormWhile&) = delete;
    LoadingFormWhile& operator=(const LoadingFormWhile&) = delete;

  private:
    LoadingForm& form_;
    Visibility before_;
};

} // namespace veldrane
