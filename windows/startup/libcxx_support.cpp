// What libc++ 19's headers leave to its compiled library, as far as containers, strings, smart pointers,
// std::function and the usual exceptions need it.
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <unordered_map>
#include <variant>

extern "C" int __cdecl __std_type_info_compare(const void* left, const void* right);

namespace std {

const nothrow_t nothrow{};

exception::~exception() noexcept {}
const char* exception::what() const noexcept { return "std::exception"; }
bad_exception::~bad_exception() noexcept {}
const char* bad_exception::what() const noexcept { return "std::bad_exception"; }
bad_alloc::bad_alloc() noexcept {}
bad_alloc::~bad_alloc() noexcept {}
const char* bad_alloc::what() const noexcept { return "std::bad_alloc"; }
bad_array_new_length::bad_array_new_length() noexcept {}
bad_array_new_length::~bad_array_new_length() noexcept {}
const char* bad_array_new_length::what() const noexcept { return "bad_array_new_length"; }
const char* bad_variant_access::what() const noexcept { return "bad_variant_access"; }
bad_optional_access::~bad_optional_access() noexcept {}
const char* bad_optional_access::what() const noexcept { return "bad_optional_access"; }
bad_cast::bad_cast() noexcept {}
bad_cast::~bad_cast() noexcept {}
const char* bad_cast::what() const noexcept { return "std::bad_cast"; }

int type_info::__compare(const type_info& other) const noexcept {
    return __std_type_info_compare(&__data, &other.__data);
}

}  // namespace std

_LIBCPP_BEGIN_NAMESPACE_STD

// The message of an exception: a counted copy, with the count in the eight bytes before the text.
constexpr size_t COUNT_BYTES = 8;

static atomic<long>& messageCount(const char* text) {
    return *reinterpret_cast<atomic<long>*>(const_cast<char*>(text) - COUNT_BYTES);
}

__libcpp_refstring::__libcpp_refstring(const char* message) {
    const size_t length = strlen(message) + 1;
    char* block = static_cast<char*>(::operator new(length + COUNT_BYTES));
    ::new (static_cast<void*>(block)) atomic<long>(1);
    memcpy(block + COUNT_BYTES, message, length);
    __imp_ = block + COUNT_BYTES;
}
__libcpp_refstring::__libcpp_refstring(const __libcpp_refstring& other) noexcept : __imp_(other.__imp_) {
    ++messageCount(__imp_);
}
__libcpp_refstring& __libcpp_refstring::operator=(const __libcpp_refstring& other) noexcept {
    ++messageCount(other.__imp_);
    this->~__libcpp_refstring();
    __imp_ = other.__imp_;
    return *this;
}
__libcpp_refstring::~__libcpp_refstring() {
    if (--messageCount(__imp_) == 0) ::operator delete(const_cast<char*>(__imp_) - COUNT_BYTES);
}

bad_function_call::~bad_function_call() noexcept {}
bad_weak_ptr::~bad_weak_ptr() noexcept {}
const char* bad_weak_ptr::what() const noexcept { return "bad_weak_ptr"; }

__shared_count::~__shared_count() {}
__shared_weak_count::~__shared_weak_count() {}
void __shared_weak_count::__release_weak() noexcept {
    if (__libcpp_atomic_refcount_decrement(__shared_weak_owners_) == -1) __on_zero_shared_weak();
}
__shared_weak_count* __shared_weak_count::lock() noexcept {
    long owners = __libcpp_acquire_load(&__shared_owners_);
    while (owners != -1) {
        if (__atomic_compare_exchange_n(&__shared_owners_, &owners, owners + 1, false, __ATOMIC_SEQ_CST,
                                        __ATOMIC_SEQ_CST))
            return this;
    }
    return nullptr;
}
const void* __shared_weak_count::__get_deleter(const type_info&) const noexcept { return nullptr; }

// The bucket counts of the unordered containers.
size_t __next_prime(size_t number) {
    if (number <= 2) return number;
    for (number |= 1;; number += 2) {
        bool prime = true;
        for (size_t divisor = 3; prime && divisor <= number / divisor; divisor += 2) prime = number % divisor != 0;
        if (prime) return number;
    }
}

template <class Number>
static string formatNumber(const char* format, Number number) {
    char text[24];
    return string(text, static_cast<size_t>(snprintf(text, sizeof text, format, number)));
}
string to_string(int number) { return formatNumber("%d", number); }
string to_string(unsigned number) { return formatNumber("%u", number); }
string to_string(long number) { return formatNumber("%ld", number); }
string to_string(unsigned long number) { return formatNumber("%lu", number); }
string to_string(long long number) { return formatNumber("%lld", number); }
string to_string(unsigned long long number) { return formatNumber("%llu", number); }

// `parse` is one of the C functions; a number that it or `Number` cannot hold is out of range.
template <class Number, class Parse, class... Base>
static Number parseNumber(const string& text, size_t* used, Parse parse, Base... base) {
    char* end = nullptr;
    errno = 0;
    const auto number = parse(text.c_str(), &end, base...);
    if (end == text.c_str()) throw invalid_argument("no number");
    if (errno == ERANGE || static_cast<decltype(number)>(static_cast<Number>(number)) != number)
        throw out_of_range("number out of range");
    if (used != nullptr) *used = static_cast<size_t>(end - text.c_str());
    return static_cast<Number>(number);
}
int stoi(const string& text, size_t* used, int base) { return parseNumber<int>(text, used, strtol, base); }
long stol(const string& text, size_t* used, int base) { return parseNumber<long>(text, used, strtol, base); }
unsigned long stoul(const string& text, size_t* used, int base) {
    return parseNumber<unsigned long>(text, used, strtoul, base);
}
long long stoll(const string& text, size_t* used, int base) {
    return parseNumber<long long>(text, used, strtoll, base);
}
unsigned long long stoull(const string& text, size_t* used, int base) {
    return parseNumber<unsigned long long>(text, used, strtoull, base);
}

// The templates that the headers declare as instantiated elsewhere.
template class basic_string<char>;
template class basic_string<wchar_t>;
template string operator+<char, char_traits<char>, allocator<char>>(const char*, const string&);

template <class Compare, class Iterator>
void __sort(Iterator first, Iterator last, Compare) {
    __less<> less;
    std::__introsort<_ClassicAlgPolicy, __less<>&, Iterator, __use_branchless_sort<__less<>&, Iterator>::value>(
        first, last, less, 2 * std::__log2i(last - first));
}
#define INSTANTIATE_SORT(Type) template void __sort<__less<Type>&, Type*>(Type*, Type*, __less<Type>&);
INSTANTIATE_SORT(char)
INSTANTIATE_SORT(signed char)
INSTANTIATE_SORT(unsigned char)
INSTANTIATE_SORT(short)
INSTANTIATE_SORT(unsigned short)
INSTANTIATE_SORT(int)
INSTANTIATE_SORT(unsigned)
INSTANTIATE_SORT(long)
INSTANTIATE_SORT(unsigned long)
INSTANTIATE_SORT(long long)
INSTANTIATE_SORT(unsigned long long)
INSTANTIATE_SORT(float)
INSTANTIATE_SORT(double)
#undef INSTANTIATE_SORT

_LIBCPP_END_NAMESPACE_STD

namespace std {

#define MESSAGE_EXCEPTION(Type)                                                        \
    Type::Type(const char* message) : __imp_(message) {}                               \
    Type::Type(const string& message) : __imp_(message.c_str()) {}                     \
    Type::Type(const Type& other) noexcept : exception(other), __imp_(other.__imp_) {} \
    Type& Type::operator=(const Type& other) noexcept {                                \
        __imp_ = other.__imp_;                                                         \
        return *this;                                                                  \
    }                                                                                  \
    Type::~Type() noexcept {}                                                          \
    const char* Type::what() const noexcept { return __imp_.c_str(); }
MESSAGE_EXCEPTION(logic_error)
MESSAGE_EXCEPTION(runtime_error)
#undef MESSAGE_EXCEPTION

domain_error::~domain_error() noexcept {}
invalid_argument::~invalid_argument() noexcept {}
length_error::~length_error() noexcept {}
out_of_range::~out_of_range() noexcept {}
range_error::~range_error() noexcept {}
overflow_error::~overflow_error() noexcept {}
underflow_error::~underflow_error() noexcept {}

}  // namespace std
