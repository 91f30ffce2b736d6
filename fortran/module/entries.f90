! The entry points of the library as they are, with explicit interfaces: a call with a wrong argument
! does not compile. The C header qzfortran.h says what each of them does.
!
! Texts of the token entry points end with a NUL: "text // c_null_char". The texts that
! qzerrf_prefix and qzerrf_throw work on must be variables, of at least 20 and 80 characters.
!
! qzerrf_file takes a unit for the output of a handler, and any negative number for silence. The
! units that "newunit=" hands out are negative: a unit for messages needs a number of one's own,
! from 10 up to keep away from the preconnected ones. qz_free_unit of the module qzfileshared finds
! one that nobody uses.
module qzfileshared_entries
    implicit none
    public

    integer, parameter :: qzerr_bummer = 0, qzerr_ok = 1, qzerr_debug = 2, qzerr_info = 3, &
                          qzerr_warning = 4, qzerr_fatal = 5, qzerr_off = 6

    ! error handlers
    interface
        subroutine qzerrf_new(id, status)
            integer, intent(out) :: id, status
        end subroutine

        subroutine qzerrf_delete(id)
            integer, intent(in) :: id
        end subroutine

        subroutine qzerrf_level(id, level, status)
            integer, intent(in) :: id, level
            integer, intent(out) :: status
        end subroutine

        subroutine qzerrf_maxlevel(id, maxlevel, status)
            integer, intent(in) :: id
            integer, intent(inout) :: maxlevel
            integer, intent(out) :: status
        end subroutine

        subroutine qzerrf_file(id, unit, status)
            integer, intent(in) :: id, unit
            integer, intent(out) :: status
        end subroutine

        subroutine qzerrf_prefix(id, prefix, status)
            integer, intent(in) :: id
            character(len=*), intent(inout) :: prefix
            integer, intent(out) :: status
        end subroutine

        subroutine qzerrf_return_code(level, code)
            integer, intent(in) :: level
            character(len=*), intent(inout) :: code
        end subroutine

        subroutine qzerrf_throw(id, level, message, status)
            integer, intent(in) :: id, level
            character(len=*), intent(inout) :: message
            integer, intent(out) :: status
        end subroutine
    end interface

    ! token lists; each function gives the result of its C function
    interface
        function qztokenf_new(handle, text, separators, pairs, comments, escapes, singles) &
            result(outcome)
            integer, intent(out) :: handle
            character(len=*), intent(in) :: text, separators, pairs, comments, escapes, singles
            integer :: outcome
        end function

        function qztokenf_add(handle, text) result(outcome)
            integer, intent(in) :: handle
            character(len=*), intent(in) :: text
            integer :: outcome
        end function

        function qztokenf_addn(handle, text, width, left, offset) result(outcome)
            integer, value :: handle
            character(len=*), intent(in) :: text
            integer, value :: width, left, offset
            integer :: outcome
        end function

        function qztokenf_clear(handle) result(outcome)
            integer, intent(in) :: handle
            integer :: outcome
        end function

        function qztokenf_delete(handle) result(outcome)
            integer, intent(in) :: handle
            integer :: outcome
        end function

        function qztokenf_num(handle) result(outcome)
            integer, intent(in) :: handle
            integer :: outcome
        end function

        function qztokenf_regex_compile(handle) result(outcome)
            integer, intent(in) :: handle
            integer :: outcome
        end function

        function qztokenf_toupper(handle) result(outcome)
            integer, intent(in) :: handle
            integer :: outcome
        end function

        function qztokenf_copy(destination, source) result(outcome)
            integer, intent(in) :: destination, source
            integer :: outcome
        end function

        function qztokenf_merge(destination, source) result(outcome)
            integer, intent(in) :: destination, source
            integer :: outcome
        end function

        function qztokenf_copyn(destination, source, width, left, offset) result(outcome)
            integer, intent(in) :: destination, source, width, left, offset
            integer :: outcome
        end function

        function qztokenf_mergen(destination, source, width, left, offset) result(outcome)
            integer, intent(in) :: destination, source, width, left, offset
            integer :: outcome
        end function

        function qztokenf_delete_token(handle, index) result(outcome)
            integer, intent(in) :: handle, index
            integer :: outcome
        end function

        function qztokenf_find_type(handle, index) result(outcome)
            integer, intent(in) :: handle, index
            integer :: outcome
        end function

        function qztokenf_tolower_token(handle, index) result(outcome)
            integer, intent(in) :: handle, index
            integer :: outcome
        end function

        function qztokenf_get_double(handle, index, value) result(outcome)
            integer, intent(in) :: handle, index
            double precision, intent(inout) :: value
            integer :: outcome
        end function

        function qztokenf_get_int(handle, index, value) result(outcome)
            integer, intent(in) :: handle, index
            integer, intent(inout) :: value
            integer :: outcome
        end function

        function qztokenf_get_string(handle) result(outcome)
            use, intrinsic :: iso_c_binding, only: c_ptr
            integer, intent(in) :: handle
            type(c_ptr) :: outcome
        end function

        function qztokenf_get_token(handle, index, token) result(outcome)
            integer, intent(in) :: handle, index
            character(len=255), intent(inout) :: token
            integer :: outcome
        end function

        function qztokenf_index(handle, text) result(outcome)
            integer, intent(in) :: handle
            character(len=*), intent(in) :: text
            integer :: outcome
        end function

        function qztokenf_indexn(handle, text, n) result(outcome)
            integer, intent(in) :: handle
            character(len=*), intent(in) :: text
            integer, intent(in) :: n
            integer :: outcome
        end function

        function qztokenf_regex_index(handle, text) result(outcome)
            integer, intent(in) :: handle
            character(len=*), intent(in) :: text
            integer :: outcome
        end function

        function qztokenf_replace(handle, index, text) result(outcome)
            integer, intent(in) :: handle, index
            character(len=*), intent(in) :: text
            integer :: outcome
        end function
    end interface

    ! files and paths; a status of 0 is success
    interface
        subroutine qzfilef_initialize(ignored, status)
            integer, intent(in) :: ignored
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_dir_expand(name, path, status)
            character(len=*), intent(in) :: name
            character(len=*), intent(inout) :: path
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_dos_to_unix(name, status)
            character(len=*), intent(in) :: name
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_dos_to_unix_register(name, status)
            character(len=*), intent(in) :: name
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_dos_to_unix_convert(status)
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_exists(name, type, status)
            character(len=*), intent(in) :: name
            integer, intent(in) :: type
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_find(name, type, path, status)
            character(len=*), intent(in) :: name
            integer, intent(in) :: type
            character(len=*), intent(inout) :: path
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_path_add(path, status)
            character(len=*), intent(in) :: path
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_path_add_cwd(status)
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_path_add_home(status)
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_path_clear(status)
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_path_get(path, status)
            character(len=*), intent(inout) :: path
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_path_is_absolute(path, status)
            character(len=*), intent(in) :: path
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_path_localize(path, status)
            character(len=*), intent(inout) :: path
            integer, intent(out) :: status
        end subroutine

        subroutine qzfilef_path_set(path, status)
            character(len=*), intent(in) :: path
            integer, intent(out) :: status
        end subroutine
    end interface
end module
