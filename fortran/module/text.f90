! Texts on their way between the two languages.
module qzfileshared_text
    use, intrinsic :: iso_c_binding
    implicit none
    private
    public :: qz_text, for_c, copied_text, taken_text, taken_texts, free_memory

    !> A text in an array whose elements have lengths of their own.
    type :: qz_text
        character(len=:), allocatable :: text
    end type

    interface
        function strlen(text) bind(c) result(length)
            import :: c_ptr, c_size_t
            type(c_ptr), value :: text
            integer(c_size_t) :: length
        end function

        ! Releases whatever the library has handed over, with the library's own run-time.
        subroutine free_memory(memory) bind(c, name='qzfile_free_component_string')
            import :: c_ptr
            type(c_ptr), value :: memory
        end subroutine
    end interface

contains

    !> A text for the library, which reads up to a NUL. The blanks at its end go.
    pure function for_c(text) result(c_text)
        character(len=*), intent(in) :: text
        character(kind=c_char, len=len_trim(text) + 1) :: c_text
        c_text = trim(text) // c_null_char
    end function

    !> The text behind a pointer that stays the library's; "" for none.
    function copied_text(memory) result(text)
        type(c_ptr), intent(in) :: memory
        character(len=:), allocatable :: text
        text = ''
        if (c_associated(memory)) text = copied(memory, int(strlen(memory)))
    end function

    !> The text behind a pointer that the library handed over, which is released; "" for none.
    function taken_text(memory) result(text)
        type(c_ptr), intent(in) :: memory
        character(len=:), allocatable :: text
        text = copied_text(memory)
        call free_memory(memory)
    end function

    function copied(memory, length) result(text)
        type(c_ptr), intent(in) :: memory
        integer, intent(in) :: length
        character(len=length) :: text
        character(kind=c_char, len=length), pointer :: view
        call c_f_pointer(memory, view)
        text = view
    end function

    !> The texts of an array that the library handed over, all of which are released.
    function taken_texts(memory, count) result(texts)
        type(c_ptr), intent(in) :: memory
        integer(c_int), intent(in) :: count
        type(qz_text), allocatable :: texts(:)
        type(c_ptr), pointer :: pointers(:)
        integer :: i

        allocate (texts(count))
        if (count == 0) return
        call c_f_pointer(memory, pointers, [count])
        do i = 1, count
            texts(i)%text = taken_text(pointers(i))
        end do
        call free_memory(memory)
    end function
end module
