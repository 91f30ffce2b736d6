! The preferences of one product, on top of the handles of qzpref.h.
module qzfileshared_preferences
    use, intrinsic :: iso_c_binding
    use qzfileshared_text
    implicit none
    private

    integer, parameter, public :: qzpref_success = 0, qzpref_failure = 1, &
                                  qzpref_conversion_error = 3, qzpref_key_not_found = 4, &
                                  qzpref_access_error = 6, qzpref_format_error = 7, &
                                  qzpref_lock_error = 9, qzpref_invalid_key = 10
    integer, parameter, public :: qzpref_type_none = 0, qzpref_type_int = 1, &
                                  qzpref_type_string = 2, qzpref_type_double = 3, &
                                  qzpref_type_bool = 4
    integer, parameter, public :: qzpref_atelio = 0, qzpref_borvane = 1, qzpref_celdris = 2, &
                                  qzpref_dovrel = 3, qzpref_enskara = 4, qzpref_fendro = 5, &
                                  qzpref_grellin = 6, qzpref_hespar = 7, qzpref_iskrell = 8, &
                                  qzpref_korvel = 9, qzpref_lumaris = 10, qzpref_meridax = 11, &
                                  qzpref_norvane = 12, qzpref_ostrel = 13, qzpref_plindra = 14, &
                                  qzpref_tarvex = 15

    !> An open store. Keys are paths with '/', below the groups that are open; a key keeps the type
    !> of its value. What a call gives as its status is one of the codes above.
    !>
    !> Close it: that saves. A copy made by assignment is the same store, and closed with it.
    type, public :: qz_preferences
        private
        integer(c_size_t) :: handle = 0
    contains
        procedure :: open => open_store       !< opens the store of a product
        procedure :: sync                     !< saves what changed, reads what others saved
        procedure :: close => close_store     !< saves and closes
        generic :: get => get_integer, get_real, get_logical, get_text
        generic :: set => set_integer, set_real, set_logical, set_text
        generic :: list => list_integers, list_reals, list_logicals, list_texts
        procedure :: type_of                  !< type of the stored value, on any platform
        procedure :: remove                   !< how many values of the user's it removed
        procedure :: begin_group              !< keys are below that group from now on
        procedure :: end_group
        procedure :: group                    !< the open groups, joined with '/'
        procedure :: subgroups                !< groups of the user's, so many levels deep
        procedure :: begin_platform           !< values set are for this platform alone from now on
        procedure :: end_platform
        procedure :: file                     !< the user's file
        procedure, private :: get_integer, get_real, get_logical, get_text
        procedure, private :: set_integer, set_real, set_logical, set_text
        procedure, private :: list_integers, list_reals, list_logicals, list_texts
    end type

    public :: qz_text

    interface
        function qzpref_new(handle, product) bind(c) result(status)
            import :: c_int, c_size_t
            integer(c_size_t), intent(out) :: handle
            integer(c_int), value :: product
            integer(c_int) :: status
        end function

        subroutine qzpref_delete(handle) bind(c)
            import :: c_size_t
            integer(c_size_t), value :: handle
        end subroutine

        subroutine qzpref_end_group(handle) bind(c)
            import :: c_size_t
            integer(c_size_t), value :: handle
        end subroutine

        subroutine qzpref_begin_os_attribute(handle) bind(c)
            import :: c_size_t
            integer(c_size_t), value :: handle
        end subroutine

        subroutine qzpref_end_os_attribute(handle) bind(c)
            import :: c_size_t
            integer(c_size_t), value :: handle
        end subroutine

        function qzpref_get_group(handle) bind(c) result(outcome)
            import :: c_ptr, c_size_t
            integer(c_size_t), value :: handle
            type(c_ptr) :: outcome
        end function

        function qzpref_get_settings_file(handle) bind(c) result(outcome)
            import :: c_ptr, c_size_t
            integer(c_size_t), value :: handle
            type(c_ptr) :: outcome
        end function

        function qzpref_sync(handle) bind(c) result(outcome)
            import :: c_int, c_size_t
            integer(c_size_t), value :: handle
            integer(c_int) :: outcome
        end function

        function qzpref_begin_group(handle, key) bind(c) result(outcome)
            import :: c_char, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            integer(c_int) :: outcome
        end function

        function qzpref_get_type(handle, key) bind(c) result(outcome)
            import :: c_char, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            integer(c_int) :: outcome
        end function

        function qzpref_remove(handle, key, type) bind(c) result(outcome)
            import :: c_char, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            integer(c_int), value :: type
            integer(c_int) :: outcome
        end function

        function qzpref_get_int(handle, key, value) bind(c) result(outcome)
            import :: c_char, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            integer(c_int), intent(out) :: value
            integer(c_int) :: outcome
        end function

        function qzpref_set_int(handle, key, value) bind(c) result(outcome)
            import :: c_char, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            integer(c_int), value :: value
            integer(c_int) :: outcome
        end function

        function qzpref_get_bool(handle, key, value) bind(c) result(outcome)
            import :: c_char, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            integer(c_int), intent(out) :: value
            integer(c_int) :: outcome
        end function

        function qzpref_set_bool(handle, key, value) bind(c) result(outcome)
            import :: c_char, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            integer(c_int), value :: value
            integer(c_int) :: outcome
        end function

        function qzpref_get_double(handle, key, value) bind(c) result(outcome)
            import :: c_char, c_double, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            real(c_double), intent(out) :: value
            integer(c_int) :: outcome
        end function

        function qzpref_set_double(handle, key, value) bind(c) result(outcome)
            import :: c_char, c_double, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            real(c_double), value :: value
            integer(c_int) :: outcome
        end function

        function qzpref_get_string(handle, key, value) bind(c) result(outcome)
            import :: c_char, c_int, c_ptr, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            type(c_ptr), intent(out) :: value
            integer(c_int) :: outcome
        end function

        function qzpref_set_string(handle, key, value) bind(c) result(outcome)
            import :: c_char, c_int, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            character(kind=c_char), intent(in) :: value(*)
            integer(c_int) :: outcome
        end function

        function qzpref_get_int_list(handle, key, names, values, count) bind(c) result(outcome)
            import :: c_char, c_int, c_ptr, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            type(c_ptr), intent(out) :: names
            type(c_ptr), intent(out) :: values
            integer(c_int), intent(out) :: count
            integer(c_int) :: outcome
        end function

        function qzpref_get_bool_list(handle, key, names, values, count) bind(c) result(outcome)
            import :: c_char, c_int, c_ptr, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            type(c_ptr), intent(out) :: names
            type(c_ptr), intent(out) :: values
            integer(c_int), intent(out) :: count
            integer(c_int) :: outcome
        end function

        function qzpref_get_double_list(handle, key, names, values, count) bind(c) result(outcome)
            import :: c_char, c_int, c_ptr, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            type(c_ptr), intent(out) :: names
            type(c_ptr), intent(out) :: values
            integer(c_int), intent(out) :: count
            integer(c_int) :: outcome
        end function

        function qzpref_get_string_list(handle, key, names, values, count) bind(c) result(outcome)
            import :: c_char, c_int, c_ptr, c_size_t
            integer(c_size_t), value :: handle
            character(kind=c_char), intent(in) :: key(*)
            type(c_ptr), intent(out) :: names
            type(c_ptr), intent(out) :: values
            integer(c_int), intent(out) :: count
            integer(c_int) :: outcome
        end function

        function qzpref_get_subgroups(handle, depth, groups, count) bind(c) result(outcome)
            import :: c_int, c_ptr, c_size_t
            integer(c_size_t), value :: handle
            integer(c_int), value :: depth
            type(c_ptr), intent(out) :: groups
            integer(c_int), intent(out) :: count
            integer(c_int) :: outcome
        end function
    end interface

contains

    subroutine open_store(self, product, status)
        class(qz_preferences), intent(inout) :: self
        integer, intent(in) :: product
        integer, intent(out) :: status
        call self%close
        status = qzpref_new(self%handle, product)
    end subroutine

    subroutine close_store(self)
        class(qz_preferences), intent(inout) :: self
        if (self%handle /= 0) call qzpref_delete(self%handle)
        self%handle = 0
    end subroutine

    subroutine sync(self, status)
        class(qz_preferences), intent(in) :: self
        integer, intent(out) :: status
        status = qzpref_sync(self%handle)
    end subroutine

    !> The value of the first layer that has the key: user, machine, installation.
    subroutine get_integer(self, key, value, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        integer, intent(inout) :: value !< unchanged unless the status is 0
        integer, intent(out) :: status
        integer(c_int) :: stored
        status = qzpref_get_int(self%handle, for_c(key), stored)
        if (status == qzpref_success) value = stored
    end subroutine

    subroutine get_real(self, key, value, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        double precision, intent(inout) :: value !< unchanged unless the status is 0
        integer, intent(out) :: status
        real(c_double) :: stored
        status = qzpref_get_double(self%handle, for_c(key), stored)
        if (status == qzpref_success) value = stored
    end subroutine

    subroutine get_logical(self, key, value, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        logical, intent(inout) :: value !< unchanged unless the status is 0
        integer, intent(out) :: status
        integer(c_int) :: stored
        status = qzpref_get_bool(self%handle, for_c(key), stored)
        if (status == qzpref_success) value = stored /= 0
    end subroutine

    subroutine get_text(self, key, value, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        character(len=:), allocatable, intent(inout) :: value !< unchanged unless the status is 0
        integer, intent(out) :: status
        character(len=:), allocatable :: stored
        type(c_ptr) :: memory
        status = qzpref_get_string(self%handle, for_c(key), memory)
        stored = taken_text(memory)
        if (status == qzpref_success) value = stored
    end subroutine

    subroutine set_integer(self, key, value, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        integer, intent(in) :: value
        integer, intent(out) :: status
        status = qzpref_set_int(self%handle, for_c(key), value)
    end subroutine

    subroutine set_real(self, key, value, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        double precision, intent(in) :: value
        integer, intent(out) :: status
        status = qzpref_set_double(self%handle, for_c(key), value)
    end subroutine

    subroutine set_logical(self, key, value, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        logical, intent(in) :: value
        integer, intent(out) :: status
        status = qzpref_set_bool(self%handle, for_c(key), merge(1_c_int, 0_c_int, value))
    end subroutine

    !> The blanks at the end of the text go.
    subroutine set_text(self, key, value, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key, value
        integer, intent(out) :: status
        status = qzpref_set_string(self%handle, for_c(key), for_c(value))
    end subroutine

    !> Every key below a group with a value of the type, in any layer, in the order of the names.
    subroutine list_integers(self, group, names, values, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: group
        type(qz_text), allocatable, intent(out) :: names(:)
        integer, allocatable, intent(out) :: values(:)
        integer, intent(out) :: status
        integer(c_int), pointer :: stored(:)
        character(len=:), allocatable :: before
        type(c_ptr) :: name_memory, memory
        integer(c_int) :: count

        before = self%group()
        status = qzpref_get_int_list(self%handle, for_c(group), name_memory, memory, count)
        call return_to(self, before)
        names = taken_texts(name_memory, count)
        allocate (values(count))
        if (count == 0) return
        call c_f_pointer(memory, stored, [count])
        values = stored
        call free_memory(memory)
    end subroutine

    subroutine list_reals(self, group, names, values, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: group
        type(qz_text), allocatable, intent(out) :: names(:)
        double precision, allocatable, intent(out) :: values(:)
        integer, intent(out) :: status
        real(c_double), pointer :: stored(:)
        character(len=:), allocatable :: before
        type(c_ptr) :: name_memory, memory
        integer(c_int) :: count

        before = self%group()
        status = qzpref_get_double_list(self%handle, for_c(group), name_memory, memory, count)
        call return_to(self, before)
        names = taken_texts(name_memory, count)
        allocate (values(count))
        if (count == 0) return
        call c_f_pointer(memory, stored, [count])
        values = stored
        call free_memory(memory)
    end subroutine

    subroutine list_logicals(self, group, names, values, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: group
        type(qz_text), allocatable, intent(out) :: names(:)
        logical, allocatable, intent(out) :: values(:)
        integer, intent(out) :: status
        integer(c_int), pointer :: stored(:)
        character(len=:), allocatable :: before
        type(c_ptr) :: name_memory, memory
        integer(c_int) :: count

        before = self%group()
        status = qzpref_get_bool_list(self%handle, for_c(group), name_memory, memory, count)
        call return_to(self, before)
        names = taken_texts(name_memory, count)
        allocate (values(count))
        if (count == 0) return
        call c_f_pointer(memory, stored, [count])
        values = stored /= 0
        call free_memory(memory)
    end subroutine

    subroutine list_texts(self, group, names, values, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: group
        type(qz_text), allocatable, intent(out) :: names(:), values(:)
        integer, intent(out) :: status
        character(len=:), allocatable :: before
        type(c_ptr) :: name_memory, memory
        integer(c_int) :: count

        before = self%group()
        status = qzpref_get_string_list(self%handle, for_c(group), name_memory, memory, count)
        call return_to(self, before)
        names = taken_texts(name_memory, count)
        values = taken_texts(memory, count)
    end subroutine

    function type_of(self, key) result(number)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        integer :: number
        number = qzpref_get_type(self%handle, for_c(key))
    end function

    !> Removes the user's value of that type, or, for qzpref_type_none, the group of that name.
    function remove(self, key, type) result(count)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: key
        integer, intent(in) :: type
        integer :: count
        count = qzpref_remove(self%handle, for_c(key), type)
    end function

    subroutine begin_group(self, name, status)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: name
        integer, intent(out) :: status
        status = qzpref_begin_group(self%handle, for_c(name))
    end subroutine

    subroutine end_group(self)
        class(qz_preferences), intent(in) :: self
        call qzpref_end_group(self%handle)
    end subroutine

    function group(self) result(name)
        class(qz_preferences), intent(in) :: self
        character(len=:), allocatable :: name
        name = taken_text(qzpref_get_group(self%handle))
    end function

    ! A listing may stay in the group that it entered, or leave one of its caller's.
    subroutine return_to(self, name)
        class(qz_preferences), intent(in) :: self
        character(len=*), intent(in) :: name
        integer :: status, reached
        do while (len(self%group()) > len(name))
            call self%end_group
        end do
        reached = len(self%group())
        if (reached == len(name)) return
        if (reached > 0) reached = reached + 1 ! the '/' between the two
        call self%begin_group(name(reached + 1:), status)
    end subroutine

    subroutine subgroups(self, names, depth)
        class(qz_preferences), intent(in) :: self
        type(qz_text), allocatable, intent(out) :: names(:)
        integer, intent(in) :: depth !< 0 for all
        type(c_ptr) :: memory
        integer(c_int) :: count, levels
        levels = qzpref_get_subgroups(self%handle, depth, memory, count)
        names = taken_texts(memory, count)
    end subroutine

    subroutine begin_platform(self)
        class(qz_preferences), intent(in) :: self
        call qzpref_begin_os_attribute(self%handle)
    end subroutine

    subroutine end_platform(self)
        class(qz_preferences), intent(in) :: self
        call qzpref_end_os_attribute(self%handle)
    end subroutine

    function file(self) result(path)
        class(qz_preferences), intent(in) :: self
        character(len=:), allocatable :: path
        path = taken_text(qzpref_get_settings_file(self%handle))
    end function
end module
