// The compiled part of fmt. Debian has it for this machine only; its headers hold the same
// functions, which are compiled here once instead of in every file that uses them.
#include <fmt/format-inl.h>

FMT_BEGIN_NAMESPACE
namespace detail {

template dragonbox::decimal_fp<float> dragonbox::to_decimal(float) noexcept;
template dragonbox::decimal_fp<double> dragonbox::to_decimal(double) noexcept;
template thousands_sep_result<char> thousands_sep_impl(locale_ref);
template char decimal_point_impl(locale_ref);
template locale_ref::locale_ref(const std::locale&);

}  // namespace detail
FMT_END_NAMESPACE
