# The flags of every target of this tree, in one place: each target links quorin_flags.
add_library(quorin_flags INTERFACE)

set(CMAKE_CXX_EXTENSIONS OFF)
target_compile_features(quorin_flags INTERFACE cxx_std_20)
target_compile_options(
    quorin_flags
    INTERFACE
        -Wall
        -Wextra
        -Wpedantic
        -Wshadow
        -Woverloaded-virtual
        -Wnon-virtual-dtor
        -Werror
        # GCC 12 takes the copying inside its own strings for overlapping once it optimises.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
        # The same digits on every machine, also where the processor has a fused multiply-add.
        -ffp-contract=off
)
target_compile_definitions(quorin_flags INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(QUORIN_FUZZ)
    target_compile_options(quorin_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(QUORIN_SANITIZE)
    set(sanitizers "-fsanitize=${QUORIN_SANITIZE}" -fno-sanitize-recover=all)
    if(QUORIN_SANITIZE MATCHES "undefined")
        # Not part of "undefined", but a Double that leaves its whole number is a fault here.
        list(APPEND sanitizers -fsanitize=float-cast-overflow)
    endif()
    target_compile_options(
        quorin_flags
        INTERFACE
            ${sanitizers}
            -fno-omit-frame-pointer
            -O1
            -g1
            # GCC sees ghosts in instrumented code.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    )
    target_link_options(quorin_flags INTERFACE ${sanitizers})
endif()
