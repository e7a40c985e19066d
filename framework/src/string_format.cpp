// CString::Format: Windows' wide printf, the same on every build.
#include "afx.h"
#include "memory.h"
#include "string_data.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

enum class Size { Default, Char, Short, Int32, Int64, LongDouble, Wide };

struct Directive {
  bool left = false;
  bool plus = false;
  bool blank = false;
  bool alternate = false;
  bool zero = false;
  int width = 0;
  int precision = -1;
  Size size = Size::Default;
  wchar_t conversion = L'\0';
};

constexpr int kWidestField = 0x100000;

class Formatter {
 public:
  Formatter(CString& target, va_list args) : m_target(target) { va_copy(m_args, args); }
  ~Formatter() { va_end(m_args); }
  Formatter(const Formatter&) = delete;
  Formatter& operator=(const Formatter&) = delete;

  void Run(LPCWSTR format) {
    while (*format != L'\0') {
      const LPCWSTR percent = std::wcschr(format, L'%');
      if (percent == nullptr) return m_target.Append(format);
      m_target.Append(format, static_cast<int>(percent - format));
      format = percent + 1;
      if (*format == L'%') {
        m_target.AppendChar(*format++);
      } else {
        format = One(percent, format);
      }
    }
  }

 private:
  // Formats one directive, whose text begins at `percent`; returns where the format goes on.
  LPCWSTR One(LPCWSTR percent, LPCWSTR at) {
    Directive d;
    at = ReadFlags(at, d);
    at = ReadWidths(at, d);
    at = ReadSize(at, d);
    d.conversion = *at;
    if (d.conversion == L'\0') return at;
    ++at;
    if (!Convert(d)) m_target.Append(percent, static_cast<int>(at - percent));
    return at;
  }

  static LPCWSTR ReadFlags(LPCWSTR at, Directive& d) {
    for (;; ++at) {
      switch (*at) {
        case L'-': d.left = true; break;
        case L'+': d.plus = true; break;
        case L' ': d.blank = true; break;
        case L'#': d.alternate = true; break;
        case L'0': d.zero = true; break;
        default: return at;
      }
    }
  }

  LPCWSTR ReadNumber(LPCWSTR at, int& value) {
    if (*at == L'*') {
      value = va_arg(m_args, int);
      return at + 1;
    }
    value = 0;
    for (; *at >= L'0' && *at <= L'9'; ++at) value = std::min(value * 10 + (*at - L'0'), kWidestField);
    return at;
  }

  LPCWSTR ReadWidths(LPCWSTR at, Directive& d) {
    at = ReadNumber(at, d.width);
    if (d.width < 0) {
      d.left = true;
      d.width = d.width > -kWidestField ? -d.width : kWidestField;
    }
    d.width = std::min(d.width, kWidestField);
    if (*at != L'.') return at;
    at = ReadNumber(at + 1, d.precision);
    d.precision = std::clamp(d.precision, -1, kWidestField);
    return at;
  }

  static LPCWSTR ReadSize(LPCWSTR at, Directive& d) {
    const auto take = [&](Size size, int length) {
      d.size = size;
      return at + length;
    };
    switch (*at) {
      case L'h': return at[1] == L'h' ? take(Size::Char, 2) : take(Size::Short, 1);
      case L'l': return at[1] == L'l' ? take(Size::Int64, 2) : take(Size::Int32, 1);
      case L'w': return take(Size::Wide, 1);
      case L'L': return take(Size::LongDouble, 1);
      case L'j':
      case L'z':
      case L't': return take(Size::Int64, 1);
      case L'I':
        if (at[1] == L'6' && at[2] == L'4') return take(Size::Int64, 3);
        if (at[1] == L'3' && at[2] == L'2') return take(Size::Int32, 3);
        return take(Size::Int64, 1);
      default: return at;
    }
  }

  bool Convert(const Directive& d) {
    switch (d.conversion) {
      case L'd':
      case L'i': Signed(d); return true;
      case L'u': Integer(d, Unsigned(d), 10, L""); return true;
      case L'o': Integer(d, Unsigned(d), 8, L""); return true;
      case L'x': Integer(d, Unsigned(d), 16, L"0x"); return true;
      case L'X': Integer(d, Unsigned(d), 16, L"0X"); return true;
      case L'p': Pointer(d); return true;
      case L'c':
      case L'C': Character(d); return true;
      case L's':
      case L'S': String(d); return true;
      case L'e':
      case L'E':
      case L'f':
      case L'F':
      case L'g':
      case L'G':
      case L'a':
      case L'A': Floating(d); return true;
      default: return false;
    }
  }

  // ---- Numbers

  void Signed(const Directive& d) {
    const long long value = SignedArgument(d);
    const auto magnitude = static_cast<unsigned long long>(value);
    const LPCWSTR sign = value < 0 ? L"-" : d.plus ? L"+" : d.blank ? L" " : L"";
    Digits(d, value < 0 ? 0ULL - magnitude : magnitude, 10, sign);
  }

  long long SignedArgument(const Directive& d) {
    switch (d.size) {
      case Size::Int64: return va_arg(m_args, long long);
      case Size::Short: return static_cast<short>(va_arg(m_args, int));
      case Size::Char: return static_cast<signed char>(va_arg(m_args, int));
      default: return va_arg(m_args, int);
    }
  }

  unsigned long long Unsigned(const Directive& d) {
    switch (d.size) {
      case Size::Int64: return va_arg(m_args, unsigned long long);
      case Size::Short: return static_cast<unsigned short>(va_arg(m_args, unsigned));
      case Size::Char: return static_cast<unsigned char>(va_arg(m_args, unsigned));
      default: return va_arg(m_args, unsigned);
    }
  }

  void Integer(const Directive& d, unsigned long long value, unsigned base, LPCWSTR prefix) {
    Digits(d, value, base, d.alternate && value != 0 ? prefix : L"");
  }

  void Digits(const Directive& d, unsigned long long value, unsigned base, LPCWSTR prefix) {
    const wchar_t* const alphabet = d.conversion == L'X' ? L"0123456789ABCDEF" : L"0123456789abcdef";
    std::wstring digits;
    for (; value != 0; value /= base) digits.insert(digits.begin(), alphabet[value % base]);
    const size_t least = d.precision < 0 ? 1 : static_cast<size_t>(d.precision);
    if (digits.size() < least) digits.insert(0, least - digits.size(), L'0');
    if (base == 8 && d.alternate && (digits.empty() || digits[0] != L'0')) digits.insert(0, 1, L'0');
    Number(d, prefix, digits, d.precision < 0);
  }

  void Number(const Directive& d, LPCWSTR prefix, std::wstring digits, bool mayPadWithZeros) {
    const size_t taken = std::wcslen(prefix) + digits.size();
    const auto width = static_cast<size_t>(d.width);
    if (d.zero && !d.left && mayPadWithZeros && taken < width) digits.insert(0, width - taken, L'0');
    Field(d, prefix + digits);
  }

  void Pointer(const Directive& d) {
    Directive hex = d;
    hex.conversion = L'X';
    hex.precision = static_cast<int>(sizeof(void*) * 2);
    Digits(hex, reinterpret_cast<ULONG_PTR>(va_arg(m_args, void*)), 16, L"");
  }

  void Floating(const Directive& d) {
    // The C library formats the bare number; sign, padding and width are ours.
    const bool isLong = d.size == Size::LongDouble;
    const char format[] = {'%',
                           d.alternate ? '#' : '+',
                           '+',
                           '.',
                           '*',
                           isLong ? 'L' : static_cast<char>(d.conversion),
                           isLong ? static_cast<char>(d.conversion) : '\0',
                           '\0'};
    const int precision = d.precision < 0 && d.conversion != L'a' && d.conversion != L'A' ? 6 : d.precision;
    const std::string text = isLong ? Print(format, precision, va_arg(m_args, long double))
                                    : Print(format, precision, va_arg(m_args, double));
    if (text.empty()) return;
    const LPCWSTR sign = text[0] == '-' ? L"-" : d.plus ? L"+" : d.blank ? L" " : L"";
    const bool finite = text.size() > 1 && text[1] >= '0' && text[1] <= '9';
    Number(d, sign, std::wstring(text.begin() + 1, text.end()), finite);
  }

  template <class Real>
  static std::string Print(const char* format, int precision, Real value) {
    const int length = std::snprintf(nullptr, 0, format, precision, value);
    std::string text(static_cast<size_t>(std::max(length, 0)), '\0');
    std::snprintf(text.data(), text.size() + 1, format, precision, value);
    return text;
  }

  // ---- Text

  static bool IsNarrow(const Directive& d) {
    if (d.size == Size::Short || d.size == Size::Char) return true;
    if (d.size == Size::Int32 || d.size == Size::Wide) return false;
    return d.conversion == L'S' || d.conversion == L'C';
  }

  void Character(const Directive& d) {
    const int code = va_arg(m_args, int);
    if (IsNarrow(d)) {
      Field(d, CString(static_cast<char>(code)));
    } else {
      Field(d, CString(static_cast<wchar_t>(code)));
    }
  }

  void String(const Directive& d) {
    if (IsNarrow(d)) {
      const LPCSTR text = va_arg(m_args, LPCSTR);
      if (text == nullptr) return Field(d, Cut(d, L"(null)"));
      // Without a null within the precision the text need not end in one.
      size_t length = 0;
      while ((d.precision < 0 || length < static_cast<size_t>(d.precision)) && text[length] != '\0') ++length;
      return Field(d, CString(text, static_cast<int>(length)));
    }
    const LPCWSTR text = va_arg(m_args, LPCWSTR);
    Field(d, Cut(d, text != nullptr ? text : L"(null)"));
  }

  static CString Cut(const Directive& d, LPCWSTR text) {
    size_t length = 0;
    while ((d.precision < 0 || length < static_cast<size_t>(d.precision)) && text[length] != L'\0') ++length;
    return CString(text, static_cast<int>(length));
  }

  void Field(const Directive& d, const std::wstring& text) {
    Field(d, CString(text.c_str(), static_cast<int>(text.size())));
  }

  void Field(const Directive& d, const CString& text) {
    const CString padding(d.zero && !d.left && IsText(d) ? L'0' : L' ', d.width - text.GetLength());
    if (!d.left) m_target.Append(padding);
    m_target.Append(text);
    if (d.left) m_target.Append(padding);
  }

  // Zero padding also fills text fields on Windows; numbers have had theirs behind the sign.
  static bool IsText(const Directive& d) {
    return d.conversion == L's' || d.conversion == L'S' || d.conversion == L'c' || d.conversion == L'C';
  }

  CString& m_target;
  va_list m_args;
};

// The text of a format that is a resource; empty if there is none.
CString FormatResource(UINT id) {
  CString format;
  if (!format.LoadString(id)) AfxThrowInvalidArgException();
  return format;
}

}  // namespace

void CString::AppendFormatV(LPCWSTR pszFormat, va_list args) {
  if (pszFormat == nullptr) AfxThrowInvalidArgException();
  // Built apart: the arguments may point into this string.
  CString text;
  framework::WithMemory([&] { Formatter(text, args).Run(pszFormat); });
  Append(text);
}

void CString::FormatV(LPCWSTR pszFormat, va_list args) {
  CString text;
  text.AppendFormatV(pszFormat, args);
  *this = text;
}

void CString::Format(LPCWSTR pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  FormatV(pszFormat, args);
  va_end(args);
}

void CString::Format(UINT nFormatID, ...) {
  const CString format = FormatResource(nFormatID);
  va_list args;
  va_start(args, nFormatID);
  FormatV(format, args);
  va_end(args);
}

void CString::AppendFormat(LPCWSTR pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  AppendFormatV(pszFormat, args);
  va_end(args);
}

void CString::AppendFormat(UINT nFormatID, ...) {
  const CString format = FormatResource(nFormatID);
  va_list args;
  va_start(args, nFormatID);
  AppendFormatV(format, args);
  va_end(args);
}
