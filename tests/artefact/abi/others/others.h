// Classes of Boost and of the standard library as the public headers need them to be read, with nothing inside but what
// they are of. With these the ABI's description is of this project's own types and small enough to be read, and it
// stays the same with another Boost, whose layouts are Boost's.
#pragma once

#include <cstddef>
#include <cstdint>

namespace std {

class string {
    char* text;
    std::size_t length;
    char inside[16];
};

class ostream;

template <class Value>
class vector {
    Value* begin;
    Value* end;
    Value* capacity;
};

template <class Key, class Value>
class map {
    std::size_t count;
    Key* keys;
    Value* values;
};

}  // namespace std

namespace boost {

template <class Object>
class shared_ptr {
    Object* object;
    void* count;
};

template <class Key, class Value>
class unordered_map {
    std::size_t count;
    Key* keys;
    Value* values;
};

class shared_mutex {
    void* state;
};

namespace asio {

class io_service {
public:
    class strand;
};

}  // namespace asio
}  // namespace boost
