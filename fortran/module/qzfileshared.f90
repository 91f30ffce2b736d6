! The library for Fortran programs: "use qzfileshared".
!
! It gives the entry points with explicit interfaces (qzfileshared_entries), the preferences
! (qzfileshared_preferences), and what follows here: the entry points whose texts are cut or padded,
! with texts of any length. Blanks at the end of a text count for nothing.
!
! Messages in a file of the program's own, in order with what it writes there itself. "newunit="
! would hand out a negative number, which stands for silence:
!
!     unit = qz_free_unit()
!     open (unit, file='solver.log')
!     call qzerrf_new(id, status)
!     call qzerrf_file(id, unit, status)
!     call qz_throw(id, qzerr_warning, 'the mesh has 12 flat cells')
module qzfileshared
    use, intrinsic :: iso_c_binding
    use qzfileshared_entries
    use qzfileshared_preferences
    use qzfileshared_text
    implicit none
    private :: c_throw, c_prefix, c_expand, c_find, c_path_get, c_token
    private :: copied_text, for_c, taken_text, taken_texts, free_memory

    interface
        function c_throw(id, level, text) bind(c, name='qz_module_throw') result(status)
            import :: c_char, c_int
            integer(c_int), value :: id, level
            character(kind=c_char), intent(in) :: text(*)
            integer(c_int) :: status
        end function

        function c_prefix(id, text) bind(c, name='qzerr_prefix') result(status)
            import :: c_char, c_int
            integer(c_int), value :: id
            character(kind=c_char), intent(in) :: text(*)
            integer(c_int) :: status
        end function

        function c_expand(text, path) bind(c, name='qzfile_dir_expand') result(status)
            import :: c_char, c_int, c_ptr
            character(kind=c_char), intent(in) :: text(*)
            type(c_ptr), intent(out) :: path
            integer(c_int) :: status
        end function

        function c_find(name, type, path) bind(c, name='qzfile_find') result(status)
            import :: c_char, c_int, c_ptr
            character(kind=c_char), intent(in) :: name(*)
            integer(c_int), value :: type
            type(c_ptr), intent(out) :: path
            integer(c_int) :: status
        end function

        function c_token(list, index) bind(c, name='qztoken_get_token') result(text)
            import :: c_int, c_ptr
            integer(c_int), value :: list, index
            type(c_ptr) :: text
        end function

        function c_path_get(path) bind(c, name='qzfile_path_get') result(status)
            import :: c_int, c_ptr
            type(c_ptr), intent(out) :: path
            integer(c_int) :: status
        end function
    end interface

contains

    !> A number for "open" that no unit has: positive, as qzerrf_file wants it. -1 when all are
    !> taken. It is not kept for the caller: open it before the next one is asked for.
    function qz_free_unit() result(unit)
        integer :: unit
        logical :: is_open
        do unit = 10, 999
            inquire (unit=unit, opened=is_open)
            if (.not. is_open) return
        end do
        unit = -1
    end function

    !> Reports a message of any length. A '%' is text. No line break follows on a stream; a unit
    !> ends its record.
    subroutine qz_throw(id, level, message)
        integer, intent(in) :: id, level
        character(len=*), intent(in) :: message
        integer :: status
        status = c_throw(id, level, for_c(message))
    end subroutine

    !> Sets the text in front of a handler's messages, up to 510 characters; one blank follows it.
    subroutine qz_set_prefix(id, prefix, status)
        integer, intent(in) :: id
        character(len=*), intent(in) :: prefix
        integer, intent(out) :: status !< 1; 0 for no such handler or a longer text
        status = c_prefix(id, trim(prefix) // ' ' // c_null_char)
    end subroutine

    !> Expands a leading "~" or "~user" and each "$NAME".
    subroutine qz_expand(text, path, status)
        character(len=*), intent(in) :: text
        character(len=:), allocatable, intent(out) :: path
        integer, intent(out) :: status !< 0; -1 when a directory is not found
        type(c_ptr) :: memory
        status = c_expand(for_c(text), memory)
        path = taken_text(memory)
    end subroutine

    !> Finds a file, or a directory, on the search path.
    subroutine qz_find(name, path, status, directory)
        character(len=*), intent(in) :: name
        character(len=:), allocatable, intent(out) :: path !< '' unless the status is 0
        integer, intent(out) :: status !< 0; -1 when it is not found
        logical, intent(in), optional :: directory
        integer(c_int) :: type
        type(c_ptr) :: memory
        type = 0
        if (present(directory)) type = merge(1_c_int, 0_c_int, directory)
        status = c_find(for_c(name), type, memory)
        path = taken_text(memory)
    end subroutine

    !> The directories of the search path, with ':' between them.
    function qz_search_path() result(list)
        character(len=:), allocatable :: list
        type(c_ptr) :: memory
        integer(c_int) :: status
        status = c_path_get(memory)
        list = taken_text(memory)
    end function

    !> Splits a line into a new token list, to be released with qztokenf_delete.
    subroutine qz_split(line, list, status, separators, pairs, comments, escapes, singles)
        character(len=*), intent(in) :: line
        integer, intent(out) :: list
        integer, intent(out) :: status !< 0; -1 when there is no memory
        character(len=*), intent(in), optional :: separators !< blank, comma and tab when absent
        character(len=*), intent(in), optional :: pairs, comments, escapes, singles
        character(len=:), allocatable :: chosen

        chosen = ' ,' // achar(9)
        if (present(separators)) chosen = separators
        status = qztokenf_new(list, line // c_null_char, chosen // c_null_char, set(pairs), &
                              set(comments), set(escapes), set(singles))
    contains
        function set(characters) result(c_text)
            character(len=*), intent(in), optional :: characters
            character(len=:), allocatable :: c_text
            c_text = c_null_char
            if (present(characters)) c_text = characters // c_null_char
        end function
    end subroutine

    !> The text of a token, of any length; '' when there is none, as the library reports.
    function qz_token(list, index) result(text)
        integer, intent(in) :: list, index !< the first has the index 0
        character(len=:), allocatable :: text
        text = copied_text(c_token(list, index))
    end function
end module
