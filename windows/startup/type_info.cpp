// The table of type_info, at which every type descriptor of throw, catch and dynamic_cast points. It has to
// lie in the image itself, because a static initializer cannot hold an imported address.
//
// The Microsoft ABI emits a table only where an object is constructed, hence typeInfoAnchor. The compiler
// crashes when a type descriptor meets this table in one file: the file stands alone, and is compiled
// without run-time type information.
using size_t = decltype(sizeof 0);

inline void* operator new(size_t, void* place) noexcept { return place; }
void operator delete(void*, size_t) noexcept;

class type_info {
  public:
    virtual ~type_info();

  private:
    [[maybe_unused]] void* data;
    [[maybe_unused]] char name[1];
};

type_info::~type_info() {}

extern "C" void typeInfoAnchor(void* place) { ::new (place) type_info; }
