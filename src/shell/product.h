#pragma once

namespace veldrane {

// The product's title, as windows, reports and generated projects carry it.
inline constexpr char kAppTitle[] = "Veldrane Professional Edition +Forms";

inline constexpr char kSupportAddress[] = "support@quillmere.example";

} // namespace veldrane
